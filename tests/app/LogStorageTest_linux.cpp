#include "app/LogFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using pevrix::LogFile;

namespace {

// Somebody else has been in the temporary folder before us.
class LogStorage : public testing::Test
{
protected:
    LogStorage()
    {
        QFile file(victim());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("theirs\n");
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_base.filePath(QString::fromLatin1(name));
    }
    [[nodiscard]] QString victim() const { return path("victim"); }
    [[nodiscard]] mode_t modeOf(const char* name) const
    {
        struct stat status = {};
        EXPECT_EQ(stat(qPrintable(path(name)), &status), 0) << name;
        return status.st_mode & 07777;
    }
    void log() const { LogFile(m_base.path()).write(u"Pevrix: a line"_s); }
    void expectVictimUntouched() const
    {
        QFile file(victim());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), "theirs\n");
    }

    QTemporaryDir m_base;
};

} // namespace

TEST_F(LogStorage, WritesThroughNoLinkAndNoPipe)
{
    ASSERT_TRUE(QDir(m_base.path()).mkdir(u"Pevrix"_s));
    const QByteArray file = path("Pevrix/pevrix.log").toLocal8Bit();
    ASSERT_EQ(symlink(qPrintable(victim()), file), 0);
    log();
    ASSERT_TRUE(QFile::remove(QString::fromLocal8Bit(file)));
    ASSERT_EQ(link(qPrintable(victim()), file), 0);
    log();
    ASSERT_TRUE(QFile::remove(QString::fromLocal8Bit(file)));
    ASSERT_EQ(mkfifo(file, 0600), 0);
    log(); // returns, although nobody reads
    expectVictimUntouched();
}

TEST_F(LogStorage, WritesIntoNoFolderThatIsALinkOrBelongsToSomebodyElse)
{
    ASSERT_TRUE(QDir(m_base.path()).mkdir(u"elsewhere"_s));
    ASSERT_EQ(symlink(qPrintable(path("elsewhere")), qPrintable(path("Pevrix"))), 0);
    log();
    EXPECT_TRUE(QDir(path("elsewhere")).isEmpty());
    ASSERT_TRUE(QFile::remove(path("Pevrix")));

    ASSERT_TRUE(QDir(m_base.path()).mkdir(u"Pevrix"_s));
    if (chown(qPrintable(path("Pevrix")), 12345, 12345) != 0) {
        GTEST_SKIP() << "only the system's administrator can give a folder away";
    }
    log();
    EXPECT_TRUE(QDir(path("Pevrix")).isEmpty());
}

TEST_F(LogStorage, KeepsTheLogToItsOwner)
{
    ASSERT_TRUE(QDir(m_base.path()).mkdir(u"Pevrix"_s));
    ASSERT_EQ(chmod(qPrintable(path("Pevrix")), 0777), 0);
    log();
    EXPECT_EQ(modeOf("Pevrix"), 0700U);
    EXPECT_EQ(modeOf("Pevrix/pevrix.log"), 0600U);
}
