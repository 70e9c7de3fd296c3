#include "pairing/QrImage.h"

#include "pairing/PairingUri.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace pevrix;

namespace {

constexpr QRgb kDark = qRgb(11, 14, 21);
constexpr QRgb kWhite = qRgb(255, 255, 255);

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
    QProcess reader;
    reader.start(program, arguments);
    EXPECT_TRUE(reader.waitForFinished(60'000)) << reader.errorString().toStdString();
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
    return reader.readAllStandardOutput().trimmed().toStdString();
}

} // namespace

TEST(QrImage, isPaintedInEightPixelModulesInsideAQuietZone)
{
    const QImage image = makeQrImage(QStringLiteral("pevrix://pair"));
    ASSERT_EQ(image.size(), QSize(232, 232)); // version 1: 21 modules
    EXPECT_EQ(image.format(), QImage::Format_RGB32);
    // The top left finder pattern, and the light ring inside it.
    EXPECT_EQ(image.pixel(32, 32), kDark);
    EXPECT_EQ(image.pixel(32 + 8, 32 + 8), kWhite);
    // The one module that is dark in every symbol, beside the lower left finder pattern; its mirror
    // image is light in this one, so columns and rows are not swapped.
    EXPECT_EQ(image.pixel(32 + 8 * 8, 32 + 8 * 13), kDark);
    EXPECT_EQ(image.pixel(32 + 8 * 13, 32 + 8 * 8), kWhite);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const bool margin = x < 32 || y < 32 || x >= 200 || y >= 200;
            const QRgb expected = margin ? kWhite : image.pixel(x / 8 * 8, y / 8 * 8);
            ASSERT_TRUE(expected == kWhite || expected == kDark);
            ASSERT_EQ(image.pixel(x, y), expected) << x << ' ' << y;
        }
    }
}

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

TEST(QrImage, isEmptyWhenTheTextDoesNotFit)
{
    EXPECT_EQ(makeQrImage(QString(2331, u'a')).width(), 177 * 8 + 64); // the largest symbol
    for (const QString& text : {QString(2332, u'a'), QString(1166, u'ä'), QString(100'000, u'a'),
                                QStringLiteral("a") + QChar::Null + u'b'}) {
        EXPECT_TRUE(makeQrImage(text).isNull());
        EXPECT_EQ(makeQrDataUrl(text), QString());
    }
}
