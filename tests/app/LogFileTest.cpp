#include "app/LogFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <thread>
#include <vector>

using namespace Qt::StringLiterals;
using pevrix::LogFile;

namespace {

// With the line ends of the platform read as '\n'.
QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll() : QByteArray();
}

QString makeLogOfSize(const QTemporaryDir& base, qint64 bytes)
{
    QDir(base.path()).mkpath(u"Pevrix"_s);
    QFile file(base.filePath(u"Pevrix/pevrix.log"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(file.resize(bytes));
    return file.fileName();
}

} // namespace

TEST(LogFile, WritesBareLinesAndMakesItsFolder)
{
    QTemporaryDir base;
    const LogFile log(base.filePath(u"not/yet/there"_s));
    log.write(u"Pevrix: eins"_s);
    log.write(u"Pevrix: zwei ü"_s);
    EXPECT_EQ(log.path(), base.filePath(u"not/yet/there/Pevrix/pevrix.log"_s));
    EXPECT_EQ(contentOf(log.path()), QByteArray("Pevrix: eins\nPevrix: zwei ü\n"));
}

TEST(LogFile, IsDeletedAtTheStartOnlyWhenItHasGrownBeyondTheLimit)
{
    QTemporaryDir kept;
    const QString atLimit = makeLogOfSize(kept, 524288);
    LogFile(kept.path()).write(u"next"_s);
    EXPECT_EQ(contentOf(atLimit).size(), 524288 + 5);

    QTemporaryDir cut;
    const QString overLimit = makeLogOfSize(cut, 524289);
    LogFile(cut.path()).write(u"next"_s);
    EXPECT_EQ(contentOf(overLimit), QByteArray("next\n"));
}

TEST(LogFile, KeepsLinesWholeWhenThreadsWriteTogether)
{
    QTemporaryDir base;
    const LogFile log(base.path());
    std::vector<std::thread> writers;
    for (char letter = 'a'; letter < 'e'; ++letter) {
        writers.emplace_back([&log, letter] {
            for (int i = 0; i < 50; ++i) {
                log.write(QString(60, QChar::fromLatin1(letter)));
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    const auto lines = contentOf(log.path()).split('\n');
    EXPECT_EQ(lines.size(), 4 * 50 + 1);
    for (const QByteArray& line : lines.first(lines.size() - 1)) {
        EXPECT_EQ(line, QByteArray(60, line.isEmpty() ? '?' : line[0]));
    }
}

TEST(LogFile, LiesInTheTemporaryFolderWithoutALocalFolder)
{
    qunsetenv("LOCALAPPDATA");
    EXPECT_EQ(LogFile::defaultBaseFolder(), QDir::tempPath());
    qputenv("LOCALAPPDATA", "/local");
    EXPECT_EQ(LogFile::defaultBaseFolder(), u"/local"_s);
}
