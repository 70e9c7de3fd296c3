#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <filesystem>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 60000; // a loaded machine under a sanitizer is slow

// The real program without a display, in a folder of its own with its camera library, its settings,
// its log and the token that it leaves beside itself.
class Program
{
public:
    // "%1" in an argument stands for that folder.
    explicit Program(const QStringList& arguments = {})
    {
        const std::filesystem::path bin(PEVRIX_BIN_DIR);
        const std::filesystem::path home(m_home.path().toStdString());
        for (const char* file : {"pevrix", "libsoftcam.so"}) {
            std::filesystem::create_hard_link(bin / file, home / file);
        }
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LOCALAPPDATA"_s, m_home.path());
        environment.insert(u"HOME"_s, m_home.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, m_home.filePath(u"config"_s));
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        m_process.setProcessEnvironment(environment);
        m_process.setStandardErrorFile(m_home.filePath(u"stderr"_s));
        QStringList all = arguments;
        m_process.start(path(u"pevrix"_s), all.replaceInStrings(u"%1"_s, m_home.path()));
        EXPECT_TRUE(m_process.waitForStarted(kPatienceMs));
    }

    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    [[nodiscard]] QString log() const
    {
        QFile file(m_home.filePath(u"Pevrix/pevrix.log"_s));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    // The first capture of the pattern in the log, empty when it does not come in time.
    QString waitForLog(const QString& pattern) const
    {
        const QRegularExpression expression(pattern);
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < kPatienceMs) {
            if (const auto match = expression.match(log()); match.hasMatch()) {
                return match.captured(match.lastCapturedIndex());
            }
            QThread::msleep(50);
        }
        ADD_FAILURE() << "not logged: " << qPrintable(pattern) << "\n" << qPrintable(log());
        return {};
    }

    // Whatever is not ours in the log would be a warning of the interface.
    void expectNoWarnings() const
    {
        const QStringList lines = log().split(u'\n', Qt::SkipEmptyParts);
        for (const QString& line : lines) {
            // Qt's own: it looks for a tray where the offscreen platform has none.
            EXPECT_TRUE(line.startsWith("Pevrix: "_L1) || line.contains("systemTrayWindow"_L1))
                << qPrintable(line);
        }
    }

    [[nodiscard]] QString path(const QString& name) const { return m_home.filePath(name); }

    // Asks the program to quit and returns its exit code.
    int quit()
    {
        m_process.terminate();
        return waitForExit();
    }

    int waitForExit()
    {
        EXPECT_TRUE(m_process.waitForFinished(kPatienceMs));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        return m_process.exitCode();
    }

private:
    QTemporaryDir m_home{QStringLiteral(PEVRIX_BIN_DIR "/program-XXXXXX")};
    QProcess m_process;
};

// A simulated phone that streams to the program once it listens. Ends with the object.
std::unique_ptr<QProcess> startPhone(const Program& program, const QStringList& arguments)
{
    const QString port = program.waitForLog(u"Pevrix: listening on port (\\d+)"_s);
    auto phone = std::make_unique<QProcess>();
    phone->setProcessChannelMode(QProcess::MergedChannels);
    phone->start(QStringLiteral(PEVRIX_BIN_DIR "/phonesim"),
                 QStringList{u"--host"_s, u"127.0.0.1"_s, u"--port"_s, port, u"--token-file"_s,
                             program.path(u"pairing-token.txt"_s), u"--size"_s, u"320x240"_s} +
                     arguments);
    return phone;
}

} // namespace

TEST(Program, ShowsTheLiveVideoOfAPhoneAndQuitsCleanly)
{
    Program program;
    const auto phone = startPhone(program, {u"--frames"_s, u"30"_s});
    ASSERT_TRUE(phone->waitForFinished(kPatienceMs));
    EXPECT_EQ(phone->exitCode(), 0) << phone->readAll().constData();

    program.waitForLog(u"Pevrix: phone 1 connected over Wi-Fi"_s);
    program.waitForLog(u"Pevrix: first picture of the stream, 320x240"_s);
    program.waitForLog(u"Pevrix: phone 1 disconnected"_s);
    EXPECT_EQ(program.quit(), 0);
    EXPECT_TRUE(program.log().contains("30 access units received, 30 pictures decoded"_L1))
        << qPrintable(program.log());
    program.expectNoWarnings();
}

TEST(Program, TakesAPictureOfItsWindowWhenTheDelayIsOver)
{
    Program program({u"--shot"_s, u"620x700"_s, u"--out"_s, u"%1/shot.png"_s, u"--lang"_s, u"ja"_s,
                     u"--shot-active"_s, u"Nobody"_s, u"--shot-delay"_s, u"1000"_s,
                     u"--shot-view"_s, u"settings"_s, u"--shot-theme"_s, u"1"_s});
    EXPECT_EQ(program.waitForExit(), 0);
    EXPECT_EQ(QImage(program.path(u"shot.png"_s)).size(), QSize(620, 700));
    EXPECT_TRUE(program.log().contains(u"Pevrix: shot saved to "_s + program.path(u"shot.png"_s)));
    program.expectNoWarnings();
}

TEST(Program, NamesItsPictureByTheDateAndSaysWhenItCannotBeWritten)
{
    Program dated({u"--shot"_s, u"--shot-delay"_s, u"200"_s});
    EXPECT_EQ(dated.waitForExit(), 0);
    const QStringList found = QDir(dated.path(u"Pictures/Pevrix"_s)).entryList(QDir::Files);
    ASSERT_EQ(found.size(), 1) << qPrintable(dated.log());
    EXPECT_TRUE(QRegularExpression(u"^Pevrix-\\d{8}-\\d{6}\\.png$"_s).match(found[0]).hasMatch());

    Program nowhere({u"--shot"_s, u"--shot-delay"_s, u"200"_s, u"--out"_s, u"%1/none/shot.png"_s});
    EXPECT_EQ(nowhere.waitForExit(), 0);
    EXPECT_TRUE(
        nowhere.log().contains(u"Pevrix: shot FAILED for "_s + nowhere.path(u"none/shot.png"_s)));
}

// The delay is far beyond this test's patience.
TEST(Program, TakesAPictureSoonAfterTheFirstFrame)
{
    for (const QStringList& wanted : {QStringList(), {u"--shot-active"_s, u"Second"_s}}) {
        Program program(QStringList{u"--shot"_s, u"--out"_s, u"%1/shot.png"_s, u"--shot-delay"_s,
                                    u"6000000"_s} +
                        wanted);
        const auto first = startPhone(program, {u"--name"_s, u"First"_s});
        const auto second = startPhone(program, {u"--name"_s, u"Second"_s});
        EXPECT_EQ(program.waitForExit(), 0);
        EXPECT_EQ(QImage(program.path(u"shot.png"_s)).size(), QSize(540, 640));
    }
}

TEST(Program, PrintsItsOptionsWhereThereIsNoDisplay)
{
    QProcess program;
    QProcessEnvironment environment;
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(PEVRIX_BIN_DIR "/pevrix"), {u"--lang"_s, u"ja"_s, u"--help"_s});
    ASSERT_TRUE(program.waitForFinished(kPatienceMs));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(program.readAllStandardOutput().contains("--shot-active NAME"));
}
