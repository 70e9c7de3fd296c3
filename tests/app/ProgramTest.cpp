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
using pevrix::words;

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

    [[nodiscard]] Program& process() { return *m_process; }

    // One more process in the same folder.
    [[nodiscard]] std::unique_ptr<Program> start(QStringList arguments = {}) const
    {
        return std::make_unique<Program>(
            path(u"pevrix"_s), arguments.replaceInStrings(u"%1"_s, m_home.path()), m_environment);
    }

private:
    QTemporaryDir m_home{QStringLiteral(PEVRIX_BIN_DIR "/program-XXXXXX")};
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    std::unique_ptr<Program> m_process;
};

// A phone reads the demonstration code in the picture of the window.
void expectCode(const QString& picture)
{
    Program reader(u"zbarimg"_s, {u"--nodbus"_s, u"--quiet"_s, u"--raw"_s, picture});
    EXPECT_EQ(reader.awaitExit(), 0) << qPrintable(reader.errors());
    EXPECT_TRUE(reader.output().startsWith("pevrix://pair?v=1&pc=DESKTOP-PEVRIX&t=Bm4Rt8Wq2Zx6Hn3K"
                                           "&h=192.168.1.42:"_L1))
        << qPrintable(reader.output());
}

} // namespace

TEST(Program, SaysWhyItCannotDecodeAndGoesOn)
{
    Pevrix program;
    ASSERT_TRUE(QFile::remove(program.path(u"libpevrix-ffmpeg.so"_s)));
    const QString port = program.waitForLog(u"Pevrix: listening on port (\\d+)"_s);
    const Program phone(
        QStringLiteral(PEVRIX_BIN_DIR "/phonesim"),
        words("--host 127.0.0.1 --size 320x240 --port") +
            QStringList{port, u"--token-file"_s, program.path(u"pairing-token.txt"_s)});
    EXPECT_NE(program.waitForLog(u"neither decoded nor recorded: .*libpevrix-ffmpeg.so"_s),
              QString());
    EXPECT_NE(program.waitForLog(u"there is no decoder for the stream"_s), QString());
    program.process().terminate();
    EXPECT_EQ(program.process().awaitExit(), 0);
}

TEST(Program, TakesAPictureOfItsWindowAndSaysWhenItCannotBeWritten)
{
    Pevrix dated(words("--shot 620x700 --lang ja --shot-active Nobody --shot-delay 1000 "
                       "--shot-view addphone --shot-theme 1"));
    EXPECT_EQ(dated.process().awaitExit(), 0);
    const QDir pictures(dated.path(u"Pictures/Pevrix"_s));
    const QStringList found = pictures.entryList(QDir::Files);
    ASSERT_EQ(found.size(), 1) << qPrintable(dated.log());
    EXPECT_TRUE(QRegularExpression(u"^Pevrix-\\d{8}-\\d{6}\\.png$"_s).match(found[0]).hasMatch());
    const QString file = pictures.filePath(found[0]);
    EXPECT_EQ(QImage(file).size(), QSize(620, 700));
    EXPECT_EQ(QImage(file).pixelColor(0, 0).alpha(), 255); // no round corners, no margin
    expectCode(file);
    EXPECT_TRUE(dated.log().contains(u"Pevrix: shot saved to "_s + file));
    dated.expectNoWarnings();

    Pevrix nowhere(words("--shot --shot-delay 200 --out %1/none/shot.png"));
    EXPECT_EQ(nowhere.process().awaitExit(), 0);
    EXPECT_TRUE(
        nowhere.log().contains(u"Pevrix: shot FAILED for "_s + nowhere.path(u"none/shot.png"_s)));
}

TEST(Program, SecondStartShowsTheFirstOnesWindowAndEnds)
{
    Pevrix program;
    const QString asked = u"Pevrix: started once more"_s;
    EXPECT_NE(program.waitForLog(u"Pevrix: listening on port (\\d+)"_s), QString());
    EXPECT_EQ(program.start({u"--tray"_s})->awaitExit(), 0);
    EXPECT_EQ(program.start(words("--shot --shot-delay 200 --out %1/a.png"))->awaitExit(), 0);
    expectCode(program.path(u"a.png"_s)); // beside the first one
    EXPECT_FALSE(program.log().contains(asked));
    EXPECT_EQ(program.start()->awaitExit(), 0);
    EXPECT_NE(program.waitForLog(asked), QString());
    EXPECT_EQ(program.log().count(u"another Pevrix is running, this one ends"_s), 2);

    const auto listened = [&] {
        return program.log().count(u"Pevrix: listening on port"_s);
    };
    const auto before = listened();
    program.process().end(); // a crash
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
