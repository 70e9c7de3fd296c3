#include "controller/Settings.h"

#include "tools/doubles/WaitUntil.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using pevrix::Settings;
using pevrix::waitUntil;

namespace {

class SettingsTest : public testing::Test
{
protected:
    SettingsTest() { EXPECT_TRUE(m_folder.isValid()); }

    [[nodiscard]] QString file() const { return m_folder.filePath(u"Pevrix.ini"_s); }

    void write(const QByteArray& bytes) const
    {
        QFile out(file());
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write(bytes);
    }

    [[nodiscard]] static QByteArray read(const QString& name)
    {
        QFile in(name);
        return in.open(QIODevice::ReadOnly | QIODevice::Text) ? in.readAll() : QByteArray();
    }

    // Whatever the file holds, what is read from it can be used.
    void expectUsableValues() const
    {
        const Settings settings(file());
        EXPECT_TRUE(Settings::isThemeMode(settings.themeMode()));
        EXPECT_FALSE(settings.recordingFolder().isEmpty());
        EXPECT_LE(settings.trusted().size() + settings.names().size(), 100);
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(SettingsTest, KeepsWhatWasStoredUnderTheKeysThatUsersKnow)
{
    // Ids are foreign text; of those with slashes that lead, trail or follow one another the store
    // would make others.
    Settings::DeviceMap trusted{{u"phone-1"_s, u"token-1"_s}};
    for (const QString& id : {u"a"_s, u"a/b\\c=d [e]"_s, u"a//b"_s, u"a/b"_s, u"/"_s, u"/%2F/"_s,
                              u"a/"_s, u"encoded:a%25"_s, u"//\u00fc"_s + QChar(0xD83D)}) {
        trusted.insert(id, u"token-%1"_s.arg(trusted.size() + 1));
    }
    {
        Settings settings(file());
        settings.setThemeMode(2);
        settings.setRecordingFolder(u"/videos/ü"_s);
        settings.setMinimizeToTray(false);
        settings.setTrusted(trusted);
        settings.setNames({{u"phone-1"_s, u"Küche"_s}, {u"phone-2/"_s, u"Hall"_s}});
        settings.setNames({{u"phone-1"_s, u"Küche"_s}});
        trusted.remove(u"a"_s);
        settings.setTrusted(trusted);
    }
    const QByteArray stored = read(file());
    for (const char* line : {"[theme]\nmode=2", "[options]\nminimizeToTray=false", "[trusted]\n",
                             "phone-1=token-1", "a\\b="}) {
        EXPECT_TRUE(stored.contains(line)) << line << "\n" << stored.constData();
    }
    // Under another name, or the values would come from memory.
    ASSERT_TRUE(QFile::copy(file(), file() + u".copy"_s));
    Settings again(file() + u".copy"_s);
    EXPECT_EQ(again.themeMode(), 2);
    EXPECT_EQ(again.recordingFolder(), u"/videos/ü"_s);
    EXPECT_FALSE(again.minimizeToTray());
    EXPECT_EQ(again.trusted(), trusted);
    const Settings::DeviceMap names{{u"phone-1"_s, u"Küche"_s}};
    EXPECT_EQ(again.names(), names);
    again.setTrusted({});
    EXPECT_TRUE(again.trusted().isEmpty());
    EXPECT_EQ(again.names(), names) << "trust is forgotten, names are not";
}

TEST_F(SettingsTest, IsWrittenAFewTimesASecondAndSurelyAtTheEnd)
{
    const auto lines = [this] {
        return read(file()).count("=token");
    };
    {
        Settings settings(file());
        Settings::DeviceMap trusted;
        const auto trust = [&](const QString& deviceId) {
            trusted.insert(deviceId, u"token"_s);
            settings.setTrusted(trusted);
            QCoreApplication::processEvents();
        };
        trust(u"first"_s);
        EXPECT_EQ(lines(), 1) << "at once";
        trust(u"second"_s);
        trust(u"third"_s);
        EXPECT_EQ(lines(), 1) << "shortly after the one before";
        EXPECT_TRUE(waitUntil([&] { return lines() == 3; }));
        trust(u"fourth"_s);
        EXPECT_EQ(lines(), 3);
        settings.flush();
        EXPECT_EQ(lines(), 4);
        trust(u"last"_s);
    }
    EXPECT_EQ(lines(), 5);
}

TEST_F(SettingsTest, BelongsToItsOwnerAlone)
{
    write("[trusted]\nphone-1=token-1\n");
    QFile::setPermissions(file(), QFile::Permissions(0x6644));
    if (!(QFile::permissions(file()) & QFile::ReadOther) ||
        (QFile::permissions(m_folder.path()) & QFile::ReadOther)) {
        GTEST_SKIP() << "this platform has no owner's rights on files";
    }
    constexpr QFile::Permissions others(0x0077);
    {
        Settings settings(file());
        EXPECT_FALSE(QFile::permissions(file()) & others) << "an older program's";
        QFile::remove(file());
        settings.setTrusted({{u"phone-2"_s, u"token-2"_s}});
    }
    EXPECT_TRUE(read(file()).contains("token-2"));
    EXPECT_FALSE(QFile::permissions(file()) & others) << "a new one";
}

TEST_F(SettingsTest, DoesNotStoreIdsWithoutBound)
{
    Settings settings(file());
    settings.setTrusted({{QString(), u"token"_s},
                         {QString(Settings::kMaxDeviceIdLength, u'x'), u"token"_s},
                         {QString(Settings::kMaxDeviceIdLength + 1, u'x'), u"token"_s}});
    EXPECT_EQ(settings.trusted().size(), 1);
}

TEST_F(SettingsTest, KeepsACopyOfADamagedFileBeforeItIsReplaced)
{
    const QByteArray damaged = "[trusted]\nphone-1=token-1\nphone-2=tok"; // cut in a line
    write(damaged);
    Settings settings(file());
    EXPECT_EQ(settings.trusted().value(u"phone-1"_s), u"token-1"_s); // what is whole is used
    settings.setThemeMode(1);
    EXPECT_EQ(read(file() + u".damaged"_s), damaged);

    write("[theme]\nmode=1\n");
    QFile::remove(file() + u".damaged"_s);
    Settings intact(file());
    EXPECT_FALSE(QFile::exists(file() + u".damaged"_s));
}

TEST_F(SettingsTest, ReadsWhatIsOfNoUseAsDefaults)
{
    const Settings none(file());
    EXPECT_TRUE(none.recordingFolder().endsWith("/Pevrix"_L1));
    EXPECT_TRUE(none.minimizeToTray());
    EXPECT_TRUE(none.trusted().isEmpty() && none.names().isEmpty());
    for (const char* mode : {"3", "-1", "banana", "99999999999", "@Invalid()"}) {
        write(QByteArray("[theme]\nmode=") + mode + "\n[recording]\nfolder=\n");
        EXPECT_EQ(Settings(file()).themeMode(), 0) << mode;
        expectUsableValues();
    }
}

TEST_F(SettingsTest, SurvivesAnyContent)
{
    const QByteArray whole = "[names]\nphone-1=\"ein Name; mit = allem\"\n\n[theme]\nmode=1\n\n"
                             "[trusted]\nencoded%3Aa%252F=token-2\nphone-1=token-1\n";
    for (qsizetype length = 0; length <= whole.size(); ++length) {
        write(whole.first(length));
        expectUsableValues();
    }
    write(QByteArray(4096, '\0'));
    expectUsableValues();
    QRandomGenerator random(1);
    for (int round = 0; round < 100; ++round) {
        QByteArray noise(round * 14, '\0');
        for (char& byte : noise) {
            byte = static_cast<char>(random.bounded(256));
        }
        write(noise);
        expectUsableValues();
    }
}

TEST_F(SettingsTest, WorksWithoutAFileThatCanBeReadOrWritten)
{
    ASSERT_TRUE(QDir().mkdir(file())); // a folder where the file should be
    Settings settings(file());
    EXPECT_EQ(settings.themeMode(), 0);
    settings.setTrusted({{u"phone-1"_s, u"token-1"_s}});
    expectUsableValues();
}
