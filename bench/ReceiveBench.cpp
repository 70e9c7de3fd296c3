// How much processor time the PC spends per received byte: PhoneServer against the leanest loop
// that could do the job, a bare recv() into one buffer that is cut up where it lies. Both read
// the same stream from the loopback interface and take turns; the times are of the reading thread
// alone, ratios are medians over the rounds.
#include "bench/VideoBench.h"
#include "phone/PhoneServer.h"
#include "phone/Protocol.h"

#include <QCoreApplication>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <netinet/in.h>
#include <span>
#include <sys/socket.h>
#include <thread>
#include <time.h>
#include <unistd.h>
#include <vector>

namespace pevrix {
namespace {

// What is read in one turn: enough that starting it costs nothing.
constexpr qint64 kBytesPerTurn = 64 * 1024 * 1024;
constexpr int kRounds = 15;

// Of the calling thread.
double cpuSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// The compiler must not see that nobody looks at the bytes.
void look(const char* bytes)
{
    asm volatile("" : : "r"(bytes) : "memory");
}

sockaddr_in loopback(quint16 port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

// A phone that says hello and sends frames of one size as fast as they are taken, from a thread of
// its own.
class Sender
{
public:
    Sender(quint16 port, qsizetype frameSize, qsizetype writeSize)
        : m_fd(::socket(AF_INET, SOCK_STREAM, 0))
    {
        const sockaddr_in address = loopback(port);
        if (::connect(m_fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            qFatal("connect: %s", std::strerror(errno));
        }
        const auto header = encodeVideoFrameHeader(1, false, frameSize);
        QByteArray stream(header.data(), std::ssize(header));
        stream += QByteArray(frameSize, 'x');
        stream = stream.repeated(std::max<qsizetype>(1, 4'000'000 / stream.size()));
        m_thread = std::thread([this, stream, writeSize] {
            const QByteArray hello = buildMessage(MessageType::Hello, R"({"v":1})");
            ::send(m_fd, hello.constData(), static_cast<std::size_t>(hello.size()), MSG_NOSIGNAL);
            send(stream, writeSize);
        });
    }
    ~Sender()
    {
        m_stop = true;
        ::shutdown(m_fd, SHUT_RDWR);
        m_thread.join();
        ::close(m_fd);
    }
    Sender(const Sender&) = delete;
    Sender& operator=(const Sender&) = delete;

private:
    void send(const QByteArray& stream, qsizetype writeSize) const
    {
        qsizetype offset = 0;
        while (!m_stop) {
            const qsizetype wanted = std::min(writeSize, stream.size() - offset);
            const ssize_t sent = ::send(m_fd, stream.constData() + offset,
                                        static_cast<std::size_t>(wanted), MSG_NOSIGNAL);
            if (sent <= 0) {
                return;
            }
            offset = (offset + sent) % stream.size();
        }
    }

    int m_fd;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

// recv() into one buffer; complete messages are looked at in place, the rest moves to the front.
class RawReader
{
public:
    explicit RawReader(qsizetype frameSize)
        : m_buffer(static_cast<std::size_t>(std::max<qsizetype>(1 << 20, 2 * frameSize)))
        , m_listener(::socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address = loopback(0);
        socklen_t size = sizeof address;
        if (::bind(m_listener, reinterpret_cast<const sockaddr*>(&address), size) != 0 ||
            ::listen(m_listener, 1) != 0 ||
            ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
            qFatal("listen: %s", std::strerror(errno));
        }
        m_port = ntohs(address.sin_port);
    }
    ~RawReader()
    {
        ::close(m_fd);
        ::close(m_listener);
    }
    RawReader(const RawReader&) = delete;
    RawReader& operator=(const RawReader&) = delete;

    quint16 port() const { return m_port; }
    void accept() { m_fd = ::accept(m_listener, nullptr, nullptr); }

    // Reads until that many more messages have come.
    void read(qint64 messages)
    {
        m_wanted += messages;
        while (m_seen < m_wanted) {
            const ssize_t got =
                ::recv(m_fd, m_buffer.data() + m_filled, m_buffer.size() - m_filled, 0);
            if (got <= 0) {
                qFatal("recv: %s", std::strerror(errno));
            }
            m_filled += static_cast<std::size_t>(got);
            m_seen += split();
        }
    }

private:
    qint64 split()
    {
        qint64 messages = 0;
        std::span<const char> rest(m_buffer.data(), m_filled);
        while (rest.size() >= std::size_t{kHeaderSize}) {
            const MessageHeader header = decodeHeader(rest.first<kHeaderSize>());
            const std::size_t size = std::size_t{kHeaderSize} + header.length;
            if (rest.size() < size) {
                break;
            }
            look(rest.data());
            rest = rest.subspan(size);
            ++messages;
        }
        std::memmove(m_buffer.data(), rest.data(), rest.size());
        m_filled = rest.size();
        return messages;
    }

    std::vector<char> m_buffer;
    std::size_t m_filled = 0;
    qint64 m_wanted = 0;
    qint64 m_seen = -1; // of frames; the hello comes first
    int m_listener;
    int m_fd = -1;
    quint16 m_port = 0;
};

class ServerReader
{
public:
    ServerReader()
    {
        if (!m_server.listen(0)) {
            qFatal("the server cannot listen");
        }
        QObject::connect(&m_server, &PhoneServer::videoFrame, &m_server,
                         [](int, const QByteArray& unit) { look(unit.constData()); });
    }

    quint16 port() const { return m_server.port(); }

    void read(qint64 messages)
    {
        m_wanted += messages;
        while (m_server.framesReceived() < m_wanted) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

private:
    PhoneServer m_server;
    qint64 m_wanted = 0;
};

void compare(qsizetype frameSize, qsizetype writeSize)
{
    RawReader raw(frameSize);
    const Sender toRaw(raw.port(), frameSize, writeSize);
    raw.accept();
    ServerReader server;
    const Sender toServer(server.port(), frameSize, writeSize);

    const qint64 frames = std::max<qint64>(1, kBytesPerTurn / frameSize);
    std::vector<double> rawTimes;
    std::vector<double> serverTimes;
    for (int round = -1; round < kRounds; ++round) {
        const double start = cpuSeconds();
        raw.read(frames);
        const double middle = cpuSeconds();
        server.read(frames);
        if (round >= 0) { // the first one warms up
            rawTimes.push_back(middle - start);
            serverTimes.push_back(cpuSeconds() - middle);
        }
    }
    const auto perMegabyte = [&](const std::vector<double>& seconds) {
        return bench::median(seconds) * 1e12 / static_cast<double>(frames * frameSize);
    };
    std::printf(
        "frames of %lld bytes in writes of %lld: bare loop %.0f us/MB, PhoneServer %.0f us/MB\n",
        static_cast<long long>(frameSize), static_cast<long long>(writeSize), perMegabyte(rawTimes),
        perMegabyte(serverTimes));
    std::printf("ratio receive_time_to_bare_loop_%lld_%lld %.2f\n",
                static_cast<long long>(frameSize), static_cast<long long>(writeSize),
                bench::medianRatio(serverTimes, rawTimes));
}

} // namespace
} // namespace pevrix

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    pevrix::compare(60'000, 1'000'000);
    pevrix::compare(8'000, 1'000'000);
    pevrix::compare(qsizetype{pevrix::kMaxPayload} - pevrix::kTimestampSize, 1024);
    return 0;
}
