// How much processor time the PC spends per received byte: PhoneServer against the leanest loop
// that could do the job, a bare recv() into one buffer that is cut up where it lies. Both read
// the same stream from the loopback interface; the times are of the reading thread alone.
#include "phone/PhoneServer.h"
#include "phone/Protocol.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <span>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace pevrix {
namespace {

// What one iteration reads: enough that starting it costs nothing, little enough for many.
constexpr qint64 kBytesPerIteration = 32 * 1024 * 1024;

sockaddr_in loopback(quint16 port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

// A phone that sends frames of one size as fast as they are taken, from a thread of its own.
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
        m_thread = std::thread([this, stream, writeSize] { send(stream, writeSize); });
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

    // Reads until that many messages have come.
    void read(qint64 messages)
    {
        while (messages > 0) {
            const ssize_t got =
                ::recv(m_fd, m_buffer.data() + m_filled, m_buffer.size() - m_filled, 0);
            if (got <= 0) {
                qFatal("recv: %s", std::strerror(errno));
            }
            m_filled += static_cast<std::size_t>(got);
            messages -= split();
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
            benchmark::DoNotOptimize(rest.data());
            rest = rest.subspan(size);
            ++messages;
        }
        std::memmove(m_buffer.data(), rest.data(), rest.size());
        m_filled = rest.size();
        return messages;
    }

    std::vector<char> m_buffer;
    std::size_t m_filled = 0;
    int m_listener;
    int m_fd = -1;
    quint16 m_port = 0;
};

// Arguments: bytes of an access unit, bytes of one write of the sender.
void rawLoop(benchmark::State& state)
{
    const qint64 frames = std::max<qint64>(1, kBytesPerIteration / state.range(0));
    RawReader reader(state.range(0));
    const Sender sender(reader.port(), state.range(0), state.range(1));
    reader.accept();
    for (auto _ : state) {
        reader.read(frames);
    }
    state.SetBytesProcessed(state.iterations() * frames * state.range(0));
}

void phoneServer(benchmark::State& state)
{
    const qint64 frames = std::max<qint64>(1, kBytesPerIteration / state.range(0));
    PhoneServer server;
    if (!server.listen(0)) {
        qFatal("the server cannot listen");
    }
    QObject::connect(&server, &PhoneServer::videoFrame, &server,
                     [](int, const QByteArray& unit) { benchmark::DoNotOptimize(unit.data()); });
    const Sender sender(server.port(), state.range(0), state.range(1));
    qint64 expected = server.framesReceived();
    for (auto _ : state) {
        expected += frames;
        while (server.framesReceived() < expected) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    state.SetBytesProcessed(state.iterations() * frames * state.range(0));
}

constexpr qint64 kLargest = qint64{kMaxPayload} - kTimestampSize;

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgNames({"frame", "write"})
        ->Args({60'000, 1'000'000})
        ->Args({8'000, 1'000'000})
        ->Args({kLargest, 1024});
}
BENCHMARK(rawLoop)->Apply(sizes);
BENCHMARK(phoneServer)->Apply(sizes);

} // namespace
} // namespace pevrix

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
