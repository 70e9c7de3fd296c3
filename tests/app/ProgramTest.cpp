#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 60000; // a loaded machine under a sanitizer is slow

// The real program without a display, with settings and log in a folder of its own.
class Program
{
public:
    explicit Program(const QStringList& arguments = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LOCALAPPDATA"_s, m_home.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, m_home.filePath(u"config"_s));
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        m_process.setProcessEnvironment(environment);
        m_process.setStandardErrorFile(m_home.filePath(u"stderr"_s));
        m_process.start(QStringLiteral(PEVRIX_BIN_DIR "/pevrix"), arguments);
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

    // Asks the program to quit and returns its exit code.
    int quit()
    {
        m_process.terminate();
        EXPECT_TRUE(m_process.waitForFinished(kPatienceMs));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        return m_process.exitCode();
    }

private:
    QTemporaryDir m_home;
    QProcess m_process;
};

} // namespace

TEST(Program, ShowsTheLiveVideoOfAPhoneAndQuitsCleanly)
{
    Program program;
    const QString port = program.waitForLog(u"Pevrix: listening on port (\\d+)"_s);
    QProcess phone;
    phone.setProcessChannelMode(QProcess::MergedChannels);
    phone.start(QStringLiteral(PEVRIX_BIN_DIR "/phonesim"),
                {u"--host"_s, u"127.0.0.1"_s, u"--port"_s, port, u"--token-file"_s,
                 QStringLiteral(PEVRIX_BIN_DIR "/pairing-token.txt"), u"--size"_s, u"320x240"_s,
                 u"--frames"_s, u"30"_s});
    ASSERT_TRUE(phone.waitForFinished(kPatienceMs));
    EXPECT_EQ(phone.exitCode(), 0) << phone.readAll().constData();

    program.waitForLog(u"Pevrix: phone 1 connected over Wi-Fi"_s);
    program.waitForLog(u"Pevrix: first picture of the stream, 320x240"_s);
    program.waitForLog(u"Pevrix: phone 1 disconnected"_s);
    EXPECT_EQ(program.quit(), 0);
    EXPECT_TRUE(program.log().contains("30 access units received, 30 pictures decoded"_L1))
        << qPrintable(program.log());
    // Anything else in the log would be a warning of the interface.
    const auto lines = program.log().split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        EXPECT_TRUE(line.startsWith("Pevrix: "_L1)) << qPrintable(line);
    }
}
