#include "pairing/Pairing.h"

#include "pairing/LanEndpoints.h"
#include "pairing/PairingToken.h"
#include "pairing/QrImage.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QHostInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <array>
#include <set>

using namespace Qt::StringLiterals;

using namespace pevrix;

TEST(PairingToken, IsTwentyTwoUriCharactersOfWhichEachIsDrawnAnew)
{
    // The last character carries two bits of the 128.
    static const QRegularExpression pattern(u"^[A-Za-z0-9_-]{21}[AQgw]$"_s);
    std::set<QString> tokens;
    std::array<std::set<QChar>, 22> seen;
    for (int i = 0; i < 300; ++i) {
        const QString token = makePairingToken();
        ASSERT_TRUE(pattern.match(token).hasMatch()) << qPrintable(token);
        tokens.insert(token);
        for (std::size_t position = 0; position < seen.size(); ++position) {
            seen[position].insert(token[static_cast<qsizetype>(position)]);
        }
    }
    EXPECT_EQ(tokens.size(), 300u);
    for (std::size_t position = 0; position < 21; ++position) {
        EXPECT_GT(seen[position].size(), 48u) << position; // of 64
    }
    EXPECT_EQ(seen[21].size(), 4u);
}

TEST(Pairing, RefreshLeavesTheTokenInASideFileThatOnlyItsOwnerReads)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"pairing-token.txt"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a longer text that was here before the token");
    file.close();
    file.setPermissions(QFile::Permissions(0x6644));

    const PairingInfo info = refreshPairing(folder.path(), 5000, false);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), info.token);
    EXPECT_EQ(info.pcName, QHostInfo::localHostName());
    EXPECT_EQ(info.addressText, findLanEndpoints(5000).value(0, u"No LAN address found"_s));
    // Windows protects by the rights of the folder; all that Qt can do there is "read-only".
    if (QFile::permissions(folder.path()) & QFile::ReadOther) {
        GTEST_SKIP() << "this platform has no owner's rights on files";
    }
    EXPECT_FALSE(file.permissions() & QFile::Permissions(0x0077));
}

TEST(Pairing, RefreshWorksWhereTheFileCannotBeWritten)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"pairing-token.txt"_s)); // in its place
    for (const QString& path : {folder.path(), folder.filePath(u"missing"_s)}) {
        EXPECT_FALSE(refreshPairing(path, 5000, false).qrDataUrl.isEmpty());
    }
}

TEST(Pairing, IsDescribedFromTheTokenTheNameAndTheEndpoints)
{
    const QStringList two{u"10.0.0.5:81"_s, u"172.16.0.1:81"_s};
    const QString none = u"No LAN address found"_s;
    const QString demo = u"192.168.1.42:81"_s;
    const struct
    {
        QString pcName;
        QStringList endpoints;
        bool captureMode;
        QString addressText;
        const char* uri;
    } cases[] = {
        {u"DESK-7"_s, two, false, two[0],
         "pevrix://pair?v=1&pc=DESK-7&t=T_-&h=10.0.0.5:81,172.16.0.1:81"},
        {u"My PC"_s, {}, false, none, "pevrix://pair?v=1&pc=My%20PC&t=T_-"},
        {QString(), {}, false, none, "pevrix://pair?v=1&pc=&t=T_-"},
        {u"\ufeffB\u00fcro\u00a0\u6c34\U0001F600"_s,
         {},
         false,
         none,
         "pevrix://pair?v=1&pc=%EF%BB%BFB%C3%BCro%C2%A0%E6%B0%B4%F0%9F%98%80&t=T_-"},
        {u"a&t=x%2,+/?#=~._"_s,
         {},
         false,
         none,
         "pevrix://pair?v=1&pc=a%26t%3Dx%252%2C%2B%2F%3F%23%3D~._&t=T_-"},
        {u"My PC"_s, two, true, demo,
         "pevrix://pair?v=1&pc=DESKTOP-PEVRIX&t=Bm4Rt8Wq2Zx6Hn3K&h=192.168.1.42:81"},
    };
    for (const auto& c : cases) {
        const PairingInfo info =
            describePairing(u"T_-"_s, c.pcName, c.endpoints, 81, c.captureMode);
        EXPECT_EQ(info.uri.toStdString(), c.uri);
        EXPECT_EQ(info.addressText, c.addressText);
        EXPECT_EQ(info.token, u"T_-"_s);
        EXPECT_EQ(info.qrDataUrl, makeQrDataUrl(info.uri));
    }
    EXPECT_EQ(describePairing(u"T"_s, QString(2400, u'x'), two, 81, false).qrDataUrl, QString());
}
