#include "tools/doubles/WaitUntil.h"
#include "usb/UsbMuxClient.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <csignal>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

// The usbmux daemon of this system, with its socket, lock and pairing records in a folder of ours:
// it knows only fixed paths, so that it gets a file system view of its own. Its socket is a Unix
// one here, and socat makes the TCP port of it that the client looks for.
class RealDaemon
{
public:
    RealDaemon()
    {
        EXPECT_TRUE(QDir(m_folder.path()).mkpath(u"run"_s) &&
                    QDir(m_folder.path()).mkpath(u"lib"_s));
        m_daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_daemon.setChildProcessModifier([run = m_folder.filePath(u"run"_s).toStdString(),
                                          lib = m_folder.filePath(u"lib"_s).toStdString()] {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            // Without root rights, a user namespace gives the right to mount.
            if ((unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) ||
                mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
                mount(run.c_str(), "/run", nullptr, MS_BIND, nullptr) != 0 ||
                mount(lib.c_str(), "/var/lib", nullptr, MS_BIND, nullptr) != 0) {
                perror("a file system view of its own");
                _exit(1);
            }
        });
        m_bridge.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_bridge.start(u"socat"_s, {u"-d"_s, u"-d"_s, u"TCP-LISTEN:0,bind=127.0.0.1,fork"_s,
                                    u"UNIX-CONNECT:"_s + m_folder.filePath(u"run/usbmuxd"_s)});
    }

    ~RealDaemon()
    {
        stop();
        m_bridge.kill();
        m_bridge.waitForFinished();
    }

    // The port that the system gave to socat, which says so in its log; 0 when it does not start.
    std::uint16_t port()
    {
        static const QRegularExpression listening(u"listening on .*:(\\d+)\\n"_s);
        QString log;
        QRegularExpressionMatch match;
        while (!(match = listening.match(log)).hasMatch() &&
               m_bridge.state() != QProcess::NotRunning && m_bridge.waitForStarted() &&
               waitForLog()) {
            log += QString::fromUtf8(m_bridge.readAllStandardError());
        }
        return match.captured(1).toUShort();
    }

    void start()
    {
        m_daemon.start(u"usbmuxd"_s, {u"--foreground"_s});
        ASSERT_TRUE(m_daemon.waitForStarted()) << qPrintable(m_daemon.errorString());
    }

    void stop()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

private:
    bool waitForLog()
    {
        m_bridge.setReadChannel(QProcess::StandardError);
        return m_bridge.waitForReadyRead();
    }

    QTemporaryDir m_folder;
    QProcess m_bridge;
    QProcess m_daemon;
};

TEST(RealUsbMuxDaemon, IsFoundLostAndFoundAgain)
{
    RealDaemon daemon;
    const std::uint16_t port = daemon.port();
    ASSERT_NE(port, 0) << "socat does not run";
    UsbMuxClient client({.port = port,
                         .reconnectInterval = std::chrono::milliseconds(50),
                         .tunnelInterval = std::chrono::milliseconds(50)});
    std::vector<bool> changes;
    QObject::connect(&client, &UsbMuxClient::availabilityChanged, &client,
                     [&](bool available) { changes.push_back(available); });
    client.start();
    daemon.start();
    ASSERT_TRUE(waitUntil([&] { return client.available(); }));
    daemon.stop();
    ASSERT_TRUE(waitUntil([&] { return !client.available(); }));
    daemon.start();
    ASSERT_TRUE(waitUntil([&] { return client.available(); }));
    EXPECT_THAT(changes, testing::ElementsAre(true, false, true));
}

} // namespace
} // namespace pevrix
