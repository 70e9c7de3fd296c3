#include "pairing/Pairing.h"

#include "pairing/LanEndpoints.h"
#include "pairing/PairingToken.h"
#include "pairing/PairingUri.h"
#include "pairing/QrImage.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QHostInfo>
#include <QTemporaryDir>

#include <array>
#include <set>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

constexpr char kUriCharacters[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

QString tokenFile(const QTemporaryDir& folder)
{
    return folder.filePath(u"pairing-token.txt"_s);
}

std::string contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
}

} // namespace

TEST(PairingToken, IsTwentyTwoUriCharactersOfWhichEachIsDrawnAnew)
{
    std::set<std::string> tokens;
    std::array<std::set<char>, 22> seen;
    for (int i = 0; i < 300; ++i) {
        const std::string token = makePairingToken().toStdString();
        ASSERT_EQ(token.size(), seen.size());
        ASSERT_EQ(token.find_first_not_of(kUriCharacters), std::string::npos) << token;
        tokens.insert(token);
        for (std::size_t position = 0; position < seen.size(); ++position) {
            seen[position].insert(token[position]);
        }
    }
    EXPECT_EQ(tokens.size(), 300u);
    for (std::size_t position = 0; position < 21; ++position) {
        EXPECT_GT(seen[position].size(), 48u) << position; // of 64
    }
    // The last character carries two bits of the 128.
    EXPECT_THAT(seen[21], testing::ElementsAre('A', 'Q', 'g', 'w'));
}

TEST(PairingToken, IsKeptInASideFileThatOnlyItsOwnerReads)
{
    const QTemporaryDir folder;
    QFile older(tokenFile(folder));
    ASSERT_TRUE(older.open(QIODevice::WriteOnly));
    older.write("a longer text that was here before the token");
    older.close();
    older.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                         QFile::ReadOther);

    writeTokenFile(folder.path(), u"AbC-_9"_s);
    EXPECT_EQ(contentOf(tokenFile(folder)), "AbC-_9");
    // Windows protects by the rights of the folder; all that Qt can do there is "read-only".
    if (QFile::permissions(folder.path()) & QFile::ReadOther) {
        GTEST_SKIP() << "this platform has no owner's rights on files";
    }
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(tokenFile(folder)) & others);
}

TEST(Pairing, RefreshMakesANewTokenAndReplacesTheFile)
{
    const QTemporaryDir folder;
    const PairingInfo first = refreshPairing(folder.path(), 5000, false);
    EXPECT_EQ(contentOf(tokenFile(folder)), first.token.toStdString());
    const PairingInfo second = refreshPairing(folder.path(), 5000, false);
    EXPECT_NE(first.token, second.token);
    EXPECT_EQ(contentOf(tokenFile(folder)), second.token.toStdString());
    EXPECT_EQ(second.pcName, QHostInfo::localHostName());

    const QStringList endpoints = findLanEndpoints(5000);
    EXPECT_EQ(second.uri, writePairingUri({second.pcName, second.token, endpoints}));
    EXPECT_EQ(second.addressText, endpoints.value(0, u"No LAN address found"_s));
}

TEST(Pairing, RefreshWorksWhereTheFileCannotBeWritten)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"pairing-token.txt"_s)); // in its place
    for (const QString& path : {folder.path(), folder.filePath(u"missing"_s)}) {
        const PairingInfo info = refreshPairing(path, 5000, false);
        EXPECT_EQ(info.token.size(), 22);
        EXPECT_FALSE(info.qrDataUrl.isEmpty());
    }
}

TEST(Pairing, RefreshInCaptureModeShowsDemoValuesButKeepsTheRealToken)
{
    const QTemporaryDir folder;
    const PairingInfo info = refreshPairing(folder.path(), 8788, true);
    EXPECT_EQ(contentOf(tokenFile(folder)), info.token.toStdString());
    EXPECT_EQ(info.token.size(), 22);
    EXPECT_EQ(info.addressText, u"192.168.1.42:8788"_s);
    EXPECT_TRUE(info.uri.startsWith(u"pevrix://pair?v=1&pc=DESKTOP-PEVRIX&t=Bm4Rt8Wq2Zx6Hn3K"_s));
}

TEST(Pairing, IsDescribedFromTheTokenTheNameAndTheEndpoints)
{
    const QString token = u"T"_s;
    const QStringList two{u"10.0.0.5:81"_s, u"172.16.0.1:81"_s};

    const PairingInfo real = describePairing(token, u"My PC"_s, two, 81, false);
    EXPECT_EQ(real.addressText, two[0]);
    EXPECT_EQ(real.shownToken, token);
    EXPECT_EQ(real.uri, u"pevrix://pair?v=1&pc=My%20PC&t=T&h=10.0.0.5:81,172.16.0.1:81"_s);
    EXPECT_EQ(real.qrDataUrl, makeQrDataUrl(real.uri));

    const PairingInfo alone = describePairing(token, u"PC"_s, {}, 81, false);
    EXPECT_EQ(alone.addressText, u"No LAN address found"_s);
    EXPECT_EQ(alone.uri, u"pevrix://pair?v=1&pc=PC&t=T"_s);
    EXPECT_FALSE(alone.qrDataUrl.isEmpty());

    const PairingInfo demo = describePairing(token, u"My PC"_s, two, 81, true);
    EXPECT_EQ(demo.token, token);
    EXPECT_EQ(demo.shownToken, u"Bm4Rt8Wq2Zx6Hn3K"_s);
    EXPECT_EQ(demo.addressText, u"192.168.1.42:81"_s);
    EXPECT_EQ(demo.uri, QStringLiteral("pevrix://pair?v=1&pc=DESKTOP-PEVRIX&t=Bm4Rt8Wq2Zx6Hn3K"
                                       "&h=192.168.1.42:81"));

    const PairingInfo tooLong = describePairing(token, QString(2400, u'x'), two, 81, false);
    EXPECT_EQ(tooLong.qrDataUrl, QString());
}
