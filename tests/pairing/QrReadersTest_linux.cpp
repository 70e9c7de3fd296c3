#include "pairing/PairingUri.h"
#include "pairing/QrImage.h"
#include "tools/doubles/Program.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace pevrix;

namespace {

QByteArray pngOf(const QString& dataUrl)
{
    const QString prefix = QStringLiteral("data:image/png;base64,");
    EXPECT_TRUE(dataUrl.startsWith(prefix));
    return QByteArray::fromBase64(dataUrl.sliced(prefix.size()).toLatin1(),
                                  QByteArray::AbortOnBase64DecodingErrors);
}

// What an independent reader finds in the picture. The reader must be installed.
std::string readWith(const QString& program, const QStringList& arguments)
{
    Program reader(program, arguments);
    EXPECT_EQ(reader.awaitExit(), 0) << reader.errors().toStdString();
    return reader.output().trimmed().toStdString();
}

} // namespace

TEST(QrImage, isReadBackByTwoIndependentReaders)
{
    const QString token = QStringLiteral("AbCdEfGhIjKlMnOpQrSt-_");
    const QStringList four{
        QStringLiteral("192.168.100.107:65535"), QStringLiteral("192.168.100.108:65535"),
        QStringLiteral("172.168.100.108:65535"), QStringLiteral("10.168.100.108:65535")};
    const PairingUri uris[] = {
        {QStringLiteral("PC"), token, {}},
        {QStringLiteral("DESKTOP-PEVRIX"), token, four.first(1)},
        {QStringLiteral("Büro 水").repeated(9), token, four},
    };
    // Modules of exactly 8 pixels fall on the blocks of this reader's default, local threshold,
    // which then takes a uniform block for background; photographs are never aligned like that.
    const QStringList globalThreshold{QStringLiteral("-binarizer"), QStringLiteral("global"),
                                      QStringLiteral("-bytes")};
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("code.png"));
    for (const PairingUri& uri : uris) {
        const QString text = writePairingUri(uri);
        const QByteArray png = pngOf(makeQrDataUrl(text));
        EXPECT_EQ(QImage::fromData(png, "PNG").convertToFormat(QImage::Format_RGB32),
                  makeQrImage(text));
        QFile output(file);
        ASSERT_TRUE(output.open(QIODevice::WriteOnly));
        ASSERT_EQ(output.write(png), png.size());
        output.close();
        EXPECT_EQ(readWith(QStringLiteral("zbarimg"),
                           {QStringLiteral("--nodbus"), QStringLiteral("--quiet"),
                            QStringLiteral("--raw"), file}),
                  text.toStdString());
        EXPECT_EQ(readWith(QStringLiteral("ZXingReader"), globalThreshold + QStringList{file}),
                  text.toStdString());
    }
}
