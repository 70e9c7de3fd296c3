#include "tools/doubles/Program.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <filesystem>
#include <memory>

using namespace Qt::StringLiterals;
using pevrix::Program;
using pevrix::waitUntil;

namespace {

// The real program without a display, in a folder of its own with its libraries, its settings, its
// log and the token that it leaves beside itself.
class Pevrix
{
public:
    // "%1" in an argument stands for that folder.
    explicit Pevrix(const QStringList& arguments = {})
    {
        const std::filesystem::path bin(PEVRIX_BIN_DIR);
        const std::filesystem::path home(m_home.path().toStdString());
        for (const char* file : {"pevrix", "libpevrix-ffmpeg.so", "libsoftcam.so"}) {
            std::filesystem::create_hard_link(bin / file, home / file);
        }
        m_environment.insert(u"LOCALAPPDATA"_s, m_home.path());
        m_environment.insert(u"HOME"_s, m_home.path());
        m_environment.insert(u"XDG_CONFIG_HOME"_s, m_home.filePath(u"config"_s));
        m_environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        m_environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        m_process = start(arguments);
    }

    [[nodiscard]] QString log() const
    {
        QFile file(m_home.filePath(u"Pevrix/pevrix.log"_s));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    // The first capture of the pattern in the log, empty when it does not come in time.
    [[nodiscard]] QString waitForLog(const QString& pattern) const
    {
        const QRegularExpression expression(pattern);
        QRegularExpressionMatch match;
        EXPECT_TRUE(waitUntil([&] {
            match = expression.match(log());
            return match.hasMatch();
        })) << "not logged: "
            << qPrintable(pattern) << "\n"
            << qPrintable(log());
        return match.captured(match.lastCapturedIndex());
    }

    // Whatever is not ours in the log would be a warning of the interface.
    void expectNoWarnings() const
    {
        const QStringList lines = log().split(u'\n', Qt::SkipEmptyParts);
        for (const QString& line : lines) {
            // Qt's own: the offscreen platform has no tray, and no windows in front of others.
            EXPECT_TRUE(line.startsWith("Pevrix: "_L1) || line.contains("systemTrayWindow"_L1) ||
                        line.contains("raise()"_L1))
                << qPrintable(line);
        }
    }

    [[nodiscard]] QString path(const QString& name) const { return m_home.filePath(name); }

    // Asks the program to quit and returns its exit code.
    [[nodiscard]] int quit()
    {
        m_process->terminate();
        return waitForExit();
    }

    [[nodiscard]] int waitForExit() { return m_process->awaitExit(); }

    // One more process in the same folder.
    [[nodiscard]] std::unique_ptr<Program> start(QStringList arguments = {}) const
    {
        return std::make_unique<Program>(
            path(u"pevrix"_s), arguments.replaceInStrings(u"%1"_s, m_home.path()), m_environment);
    }

    void crash() { m_process->end(); }

private:
    QTemporaryDir m_home{QStringLiteral(PEVRIX_BIN_DIR "/program-XXXXXX")};
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    std::unique_ptr<Program> m_process;
};

// A simulated phone that streams to the program once it listens. Ends with the object.
std::unique_ptr<Program> startPhone(const Pevrix& program, const QString& name)
{
    const QString port = program.waitForLog(u"Pevrix: listening on port (\\d+)"_s);
    return std::make_unique<Program>(QStringLiteral(PEVRIX_BIN_DIR "/phonesim"),
                                     QStringList{u"--host"_s, u"127.0.0.1"_s, u"--port"_s, port,
                                                 u"--token-file"_s,
                                                 program.path(u"pairing-token.txt"_s), u"--size"_s,
                                                 u"320x240"_s, u"--name"_s, name});
}

} // namespace

TEST(Program, ShowsTheLiveVideoOfAPhoneAndQuitsCleanly)
{
    Pevrix program;
    const auto phone = startPhone(program, u"Phone"_s);
    EXPECT_NE(program.waitForLog(u"Pevrix: phone 1 connected over Wi-Fi"_s), QString());
    EXPECT_NE(program.waitForLog(u"Pevrix: first picture of the stream, 320x240"_s), QString());
    phone->terminate();
    EXPECT_EQ(phone->awaitExit(), 0) << qPrintable(phone->errors());
    EXPECT_NE(program.waitForLog(u"Pevrix: phone 1 disconnected"_s), QString());
    EXPECT_EQ(program.quit(), 0);
    const QString frames =
        QRegularExpression(u"frames=(\\d+)"_s).match(phone->output()).captured(1);
    EXPECT_TRUE(program.log().contains(
        u"stopped after %1 access units received, %1 pictures decoded"_s.arg(frames)))
        << qPrintable(phone->output() + program.log());
    program.expectNoWarnings();
}

TEST(Program, SaysWhyItCannotDecodeAndGoesOn)
{
    Pevrix program;
    ASSERT_TRUE(QFile::remove(program.path(u"libpevrix-ffmpeg.so"_s)));
    const auto phone = startPhone(program, u"Phone"_s);
    EXPECT_NE(program.waitForLog(u"neither decoded nor recorded: .*libpevrix-ffmpeg.so"_s),
              QString());
    EXPECT_NE(program.waitForLog(u"there is no decoder for the stream"_s), QString());
    EXPECT_EQ(program.quit(), 0);
}

TEST(Program, TakesAPictureOfItsWindowWhenTheDelayIsOver)
{
    Pevrix program({u"--shot"_s, u"620x700"_s, u"--out"_s, u"%1/shot.png"_s, u"--lang"_s, u"ja"_s,
                    u"--shot-active"_s, u"Nobody"_s, u"--shot-delay"_s, u"1000"_s, u"--shot-view"_s,
                    u"settings"_s, u"--shot-theme"_s, u"1"_s});
    EXPECT_EQ(program.waitForExit(), 0);
    EXPECT_EQ(QImage(program.path(u"shot.png"_s)).size(), QSize(620, 700));
    EXPECT_TRUE(program.log().contains(u"Pevrix: shot saved to "_s + program.path(u"shot.png"_s)));
    program.expectNoWarnings();
}

TEST(Program, NamesItsPictureByTheDateAndSaysWhenItCannotBeWritten)
{
    Pevrix dated({u"--shot"_s, u"--shot-delay"_s, u"200"_s});
    EXPECT_EQ(dated.waitForExit(), 0);
    const QStringList found = QDir(dated.path(u"Pictures/Pevrix"_s)).entryList(QDir::Files);
    ASSERT_EQ(found.size(), 1) << qPrintable(dated.log());
    EXPECT_TRUE(QRegularExpression(u"^Pevrix-\\d{8}-\\d{6}\\.png$"_s).match(found[0]).hasMatch());

    Pevrix nowhere({u"--shot"_s, u"--shot-delay"_s, u"200"_s, u"--out"_s, u"%1/none/shot.png"_s});
    EXPECT_EQ(nowhere.waitForExit(), 0);
    EXPECT_TRUE(
        nowhere.log().contains(u"Pevrix: shot FAILED for "_s + nowhere.path(u"none/shot.png"_s)));
}

// The delay is far beyond this test's patience.
TEST(Program, TakesAPictureSoonAfterTheFirstFrame)
{
    for (const QStringList& wanted : {QStringList(), {u"--shot-active"_s, u"Second"_s}}) {
        Pevrix program(QStringList{u"--shot"_s, u"--out"_s, u"%1/shot.png"_s, u"--shot-delay"_s,
                                   u"6000000"_s} +
                       wanted);
        const auto first = startPhone(program, u"First"_s);
        const auto second = startPhone(program, u"Second"_s);
        EXPECT_EQ(program.waitForExit(), 0);
        EXPECT_EQ(QImage(program.path(u"shot.png"_s)).size(), QSize(540, 640));
    }
}

TEST(Program, SecondStartShowsTheFirstOnesWindowAndEnds)
{
    Pevrix program;
    const QString asked = u"Pevrix: started once more"_s;
    EXPECT_NE(program.waitForLog(u"Pevrix: listening on port (\\d+)"_s), QString());
    EXPECT_EQ(program.start({u"--tray"_s})->awaitExit(), 0);
    EXPECT_EQ(program.start({u"--shot"_s, u"--shot-delay"_s, u"200"_s})->awaitExit(), 0);
    EXPECT_TRUE(program.log().contains(u"Pevrix: shot saved"_s)); // beside the first one
    EXPECT_FALSE(program.log().contains(asked));
    EXPECT_EQ(program.start()->awaitExit(), 0);
    EXPECT_NE(program.waitForLog(asked), QString());
    EXPECT_EQ(program.log().count(u"another Pevrix is running, this one ends"_s), 2);

    const auto listened = [&] {
        return program.log().count(u"Pevrix: listening on port"_s);
    };
    const auto before = listened();
    program.crash();
    const auto next = program.start();
    EXPECT_TRUE(waitUntil([&] { return listened() > before; })) << qPrintable(program.log());
    next->terminate();
    EXPECT_EQ(next->awaitExit(), 0);
    program.expectNoWarnings();
}

TEST(Program, PrintsItsOptionsWhereThereIsNoDisplay)
{
    QProcessEnvironment environment;
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    Program program(QStringLiteral(PEVRIX_BIN_DIR "/pevrix"), {u"--lang"_s, u"ja"_s, u"--help"_s},
                    environment);
    EXPECT_EQ(program.awaitExit(), 0);
    EXPECT_TRUE(program.output().contains(u"--shot-active NAME"_s));
}
