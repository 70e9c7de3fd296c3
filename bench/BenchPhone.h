#pragma once

#include "tools/phonesim/MuxDaemon.h"
#include "tools/phonesim/Phone.h"

#include <QEventLoop>
#include <QThread>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <memory>
#include <sys/resource.h>
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

    BenchPhone(const StreamDescription& stream, const std::vector<AccessUnit>& units, bool usb)
        : m_stream(stream)
        , m_units(units)
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
    // Notes when each access unit was taken to be written.
    class TimedClip : public ClipSource
    {
    public:
        explicit TimedClip(BenchPhone& owner)
            : ClipSource(owner.m_stream, owner.m_units)
            , m_owner(owner)
        {}
        std::optional<AccessUnit> next(qint64 number, bool wantKeyframe) override
        {
            m_owner.m_sentAt.push_back(Clock::now());
            return ClipSource::next(number, wantKeyframe);
        }

    private:
        BenchPhone& m_owner;
    };

    [[nodiscard]] double framesPerSecond() const
    {
        constexpr double kCameraPeriod = 1.0 / 30;
        const auto count = static_cast<double>(m_units.size());
        return count / (count / m_stream.fps + kCameraPeriod);
    }

    void live()
    {
        using namespace std::chrono_literals;
        MuxDaemon daemon;
        const bool there = daemon.appear();
        m_daemonPort.set_value(there && m_usb ? daemon.port() : 1);
        const quint16 port = m_pcPort.get_future().get();

        QEventLoop loop;
        Phone phone(std::make_unique<TimedClip>(*this), {.deviceId = QStringLiteral("bench")},
                    framesPerSecond());
        phone.setStalled(true);
        QObject::connect(&phone, &Phone::stateChanged, &loop, [&] {
            if (phone.state() == Phone::State::Over) {
                std::fprintf(stderr, "the program took no phone, or left it\n");
                std::exit(EXIT_FAILURE);
            }
            if (phone.state() == Phone::State::Streaming) {
                announce(phone);
                QTimer::singleShot(500ms, &phone, [&] { begin(phone); });
            }
        });
        QObject::connect(&phone, &Phone::frameSent, &loop, [&] {
            if (phone.framesSent() == std::ssize(m_units)) {
                phone.setStalled(true);
                phone.send(buildMessage(MessageType::Ping)); // answered when all is decoded
            }
        });
        QObject::connect(&phone, &Phone::received, &loop, [&](const Message& message) {
            if (message.type == MessageType::Pong) {
                m_cpuSeconds = programSeconds() - m_cpuSeconds;
                QTimer::singleShot(300ms, &loop, &QEventLoop::quit); // what is queued is shown
            }
        });
        QObject::connect(&daemon, &MuxDaemon::tunnelOpened, &phone,
                         [&](int, QTcpSocket* tunnel) { phone.takeTunnel(tunnel); });
        if (m_usb) {
            daemon.attach(1);
        } else {
            phone.connectTo(QStringLiteral("127.0.0.1"), port, QString::fromUtf8(m_token));
        }
        loop.exec();
        phone.disconnect(&loop);
    }

    // The camera is made anew before the first picture comes.
    void announce(Phone& phone) const
    {
        phone.send(buildMessage(MessageType::StreamInfo,
                                QStringLiteral(R"({"width":%1,"height":%2,"fps":%3})")
                                    .arg(m_stream.width)
                                    .arg(m_stream.height)
                                    .arg(m_stream.fps)
                                    .toUtf8()));
    }

    void begin(Phone& phone)
    {
        m_cpuSeconds = programSeconds();
        phone.setStalled(false);
    }

    // Of all threads but the phone's, on which this is called.
    static double programSeconds() { return cpuSeconds(RUSAGE_SELF) - cpuSeconds(RUSAGE_THREAD); }

    const StreamDescription m_stream;
    const std::vector<AccessUnit>& m_units;
    const bool m_usb;
    QByteArray m_token;
    std::promise<quint16> m_daemonPort;
    std::promise<quint16> m_pcPort;
    std::vector<Clock::time_point> m_sentAt;
    double m_cpuSeconds = 0;
    std::unique_ptr<QThread> m_thread; // last: it uses the rest
};

} // namespace pevrix::bench
