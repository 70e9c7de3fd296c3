#pragma once

#include "phone/Protocol.h"
#include "tests/support/AnnexB.h"
#include "tools/phonesim/MuxDaemon.h"

#include <QEventLoop>
#include <QTcpSocket>
#include <QThread>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <memory>
#include <span>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace pevrix::bench {

inline double cpuSeconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// A phone on a thread of its own that knows when it wrote each access unit to its socket. It sends
// in time like a camera, but over the whole stream it falls behind by one period of the PC's
// camera, so that the latency is not that of one accidental phase between the two.
class BenchPhone
{
public:
    using Clock = std::chrono::steady_clock;

    struct Stream
    {
        StreamDescription description;
        std::span<const AccessUnit> units;
    };

    BenchPhone(Stream stream, bool usb)
        : m_stream(stream)
        , m_usb(usb)
        , m_thread(QThread::create([this] { live(); }))
    {
        m_thread->start();
    }

    // Of the usbmux daemon in front of the phone; one where there is none when it is in the
    // network.
    [[nodiscard]] quint16 daemonPort() { return m_daemonPort.get_future().get(); }

    // The program listens and would take this token.
    void begin(quint16 port, const QByteArray& token)
    {
        m_token = token;
        m_pcPort.set_value(port);
    }

    // Runs this thread's event loop until all is sent and had the time to be shown.
    void waitUntilDone()
    {
        QEventLoop loop;
        QObject::connect(m_thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
        if (!m_thread->isFinished()) {
            loop.exec();
        }
        m_thread->wait();
    }

    // After the end: when each access unit was written, and the processor time that the rest of
    // this program took meanwhile.
    [[nodiscard]] const std::vector<Clock::time_point>& sentAt() const { return m_sentAt; }
    [[nodiscard]] double programCpuSeconds() const { return m_cpuSeconds; }

private:
    void live()
    {
        MuxDaemon daemon({});
        QTcpSocket network;
        QTcpSocket* socket = &network;
        const bool there = daemon.appear(0);
        m_daemonPort.set_value(there && m_usb ? daemon.port() : 1);
        const quint16 port = m_pcPort.get_future().get();
        if (m_usb) {
            QEventLoop loop;
            QObject::connect(&daemon, &MuxDaemon::tunnelOpened, &loop,
                             [&](int, QTcpSocket* tunnel) {
                                 socket = tunnel;
                                 loop.quit();
                             });
            daemon.attach(false);
            loop.exec();
        } else {
            network.connectToHost(QHostAddress::LocalHost, port);
        }
        greet(*socket);
        sendVideo(*socket);
        QThread::msleep(300); // what is queued is shown
        socket->disconnectFromHost();
    }

    void greet(QTcpSocket& socket) const
    {
        socket.waitForConnected();
        socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        ask(socket, MessageType::Hello, MessageType::StartRequest,
            R"({"v":1,"token":")" + m_token + R"(","deviceId":"bench"})");
        const StreamDescription& stream = m_stream.description;
        socket.write(buildMessage(MessageType::StreamInfo,
                                  QStringLiteral(R"({"width":%1,"height":%2,"fps":%3})")
                                      .arg(stream.width)
                                      .arg(stream.height)
                                      .arg(stream.fps)
                                      .toUtf8()));
        socket.waitForBytesWritten();
        QThread::msleep(500); // the camera is made anew
    }

    // Waits for the program's message of this type, whose payload is {}.
    static void ask(QTcpSocket& socket, MessageType question, MessageType answer,
                    const QByteArray& payload = "{}")
    {
        socket.write(buildMessage(question, payload));
        const QByteArray wanted = buildMessage(answer, "{}");
        for (QByteArray received; !received.contains(wanted); received += socket.readAll()) {
            if (!socket.waitForReadyRead()) {
                std::fprintf(stderr, "the program does not answer the phone\n");
                std::exit(EXIT_FAILURE);
            }
        }
    }

    void sendVideo(QTcpSocket& socket)
    {
        constexpr auto kCameraPeriod = std::chrono::nanoseconds(std::chrono::seconds(1)) / 30;
        const auto count = std::ssize(m_stream.units);
        const std::chrono::nanoseconds period =
            std::chrono::nanoseconds(std::chrono::seconds(1)) / m_stream.description.fps;
        const double ownBefore = cpuSeconds(RUSAGE_THREAD);
        const double allBefore = cpuSeconds(RUSAGE_SELF);
        const auto start = Clock::now();
        for (std::ptrdiff_t i = 0; i < count; ++i) {
            const AccessUnit& unit = m_stream.units[static_cast<std::size_t>(i)];
            const auto header = encodeVideoFrameHeader(i, unit.keyframe, std::ssize(unit.bytes));
            std::this_thread::sleep_until(start + i * period + i * kCameraPeriod / count);
            m_sentAt.push_back(Clock::now());
            socket.write(header.data(), std::ssize(header));
            socket.write(reinterpret_cast<const char*>(unit.bytes.data()), std::ssize(unit.bytes));
            while (socket.bytesToWrite() > 0 && (socket.flush() || socket.waitForBytesWritten())) {
            }
        }
        // Answered when everything before it is decoded.
        ask(socket, MessageType::Ping, MessageType::Pong);
        m_cpuSeconds =
            cpuSeconds(RUSAGE_SELF) - allBefore - (cpuSeconds(RUSAGE_THREAD) - ownBefore);
    }

    const Stream m_stream;
    const bool m_usb;
    QByteArray m_token;
    std::promise<quint16> m_daemonPort;
    std::promise<quint16> m_pcPort;
    std::vector<Clock::time_point> m_sentAt;
    double m_cpuSeconds = 0;
    std::unique_ptr<QThread> m_thread; // last: it uses the rest
};

} // namespace pevrix::bench
