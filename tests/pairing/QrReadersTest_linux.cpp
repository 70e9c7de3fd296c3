#include "pairing/Pairing.h"
#include "tools/doubles/Program.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

// What an independent reader finds in the picture. The reader must be installed.
std::string readWith(const QString& program, const QStringList& arguments)
{
    Program reader(program, arguments);
    EXPECT_EQ(reader.awaitExit(), 0) << reader.errors().toStdString();
    return reader.output().trimmed().toStdString();
}

} // namespace

TEST(QrImage, IsReadBackByTwoIndependentReaders)
{
    const QString token = u"AbCdEfGhIjKlMnOpQrSt-_"_s;
    const QStringList four{u"192.168.100.107:65535"_s, u"192.168.100.108:65535"_s,
                           u"172.168.100.108:65535"_s, u"10.168.100.108:65535"_s};
    const PairingInfo pairings[] = {
        describePairing(token, u"PC"_s, {}, 1, false),
        describePairing(token, u"Büro 水"_s.repeated(9), four, 1, false),
    };
    // Modules of exactly 8 pixels fall on the blocks of this reader's default, local threshold,
    // which then takes a uniform block for background; photographs are never aligned like that.
    const QStringList globalThreshold{u"-binarizer"_s, u"global"_s, u"-bytes"_s};
    const QString prefix = u"data:image/png;base64,"_s;
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"code.png"_s);
    for (const PairingInfo& pairing : pairings) {
        ASSERT_TRUE(pairing.qrDataUrl.startsWith(prefix));
        const QByteArray png =
            QByteArray::fromBase64(pairing.qrDataUrl.sliced(prefix.size()).toLatin1(),
                                   QByteArray::AbortOnBase64DecodingErrors);
        QFile output(file);
        ASSERT_TRUE(output.open(QIODevice::WriteOnly));
        ASSERT_EQ(output.write(png), png.size());
        output.close();
        EXPECT_EQ(readWith(u"zbarimg"_s, {u"--nodbus"_s, u"--quiet"_s, u"--raw"_s, file}),
                  pairing.uri.toStdString());
        EXPECT_EQ(readWith(u"ZXingReader"_s, globalThreshold + QStringList{file}),
                  pairing.uri.toStdString());
    }
}
