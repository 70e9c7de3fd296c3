#include "phone/PhoneServer.h"
#include "tests/phone/TestPhone.h"
#include "tests/support/Platform.h"

#include <gtest/gtest.h>

#include <malloc.h>
#include <netinet/in.h>
#include <random>
#include <sys/resource.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

// Bytes that live in the heap, when the program runs under a sanitizer: those keep freed memory
// aside, so the process size says nothing there.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace pevrix {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr qint64 kMiB = 1024 * 1024;

qint64 heapBytes()
{
    if (__sanitizer_get_current_allocated_bytes != nullptr) {
        return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
    }
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}

// A bare socket, for what a well-mannered client cannot do.
class RawPeer
{
public:
    explicit RawPeer(quint16 port)
        : m_fd(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_connected = ::connect(m_fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    }
    RawPeer(RawPeer&& other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
        , m_connected(other.m_connected)
    {}
    ~RawPeer()
    {
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }

    bool connected() const { return m_connected; }
    // How many bytes went out: -1 when the connection is gone, 0 when there is no room now.
    ssize_t write(QByteArrayView bytes, int flags = MSG_DONTWAIT) const
    {
        const ssize_t count = ::send(m_fd, bytes.data(), static_cast<std::size_t>(bytes.size()),
                                     flags | MSG_NOSIGNAL);
        return count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK) ? 0 : count;
    }
    // The connection ends with a reset rather than in good order.
    void resetOnClose() const
    {
        const linger hard{.l_onoff = 1, .l_linger = 0};
        ::setsockopt(m_fd, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    }
    // The server has ended the connection.
    bool ended() const
    {
        char byte = 0;
        const ssize_t count = ::recv(m_fd, &byte, 1, MSG_DONTWAIT | MSG_PEEK);
        return count == 0 || (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK);
    }

private:
    int m_fd;
    bool m_connected = false;
};

// A server with one good phone on it, which must be served whatever the others do.
class HostilePeersTest : public testing::Test
{
protected:
    HostilePeersTest()
    {
        EXPECT_TRUE(server.listen(0));
        QObject::connect(&server, &PhoneServer::videoFrame, &server,
                         [this](int id) { goodFrames += id == 1 ? 1 : 0; });
        QObject::connect(&phone.socket, &QTcpSocket::readyRead, &phone.socket,
                         [this] { phone.socket.write(buildMessage(MessageType::Pong)); });
        phone.socket.connectToHost(QHostAddress::LocalHost, server.port());
        EXPECT_TRUE(phone.sendAndSettle(helloMessage("good")));
    }

    // The good phone streams frames, and each of them arrives.
    [[nodiscard]] bool goodPhoneIsServed(int frames = 3)
    {
        const qint64 before = goodFrames;
        for (int i = 0; i < frames; ++i) {
            if (!phone.sendAndSettle(frameMessage(i, QByteArray(20'000, 'x')))) {
                return false;
            }
        }
        return goodFrames == before + frames;
    }

    PhoneServer server{{.pingInterval = 50ms, .silenceLimit = 1500ms, .closeGrace = 500ms}};
    TestPhone phone;
    qint64 goodFrames = 0;
};

TEST_F(HostilePeersTest, randomBytesHurtNobody)
{
    std::mt19937 random(7);
    const QByteArray types("\x00\x01\x02\x10\x11\x12\x13\x30\x31\x40\xff", 11);
    for (int batch = 0; batch < 20; ++batch) {
        std::vector<RawPeer> peers;
        for (int i = 0; i < 50; ++i) {
            const RawPeer& peer = peers.emplace_back(server.port());
            ASSERT_TRUE(peer.connected());
            QByteArray bytes(static_cast<qsizetype>(random() % 3000), Qt::Uninitialized);
            std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
            if (i % 2 == 0) { // half of them get past the first header
                const auto type = MessageType(types[static_cast<qsizetype>(random() % 11)]);
                bytes = buildMessage(type, bytes.left(bytes.size() / 2)) + bytes;
            }
            peer.write(bytes);
        }
        ASSERT_TRUE(goodPhoneIsServed());
    }
}

TEST_F(HostilePeersTest, announcedLengthsTakeNoMemory)
{
    const qint64 before = heapBytes();
    std::vector<RawPeer> peers;
    for (int i = 0; i < 50; ++i) {
        peers.emplace_back(server.port())
            .write("\x11\x01\x00\x00\x00\x01"
                   "12345678"
                   "x"_ba);
    }
    ASSERT_TRUE(goodPhoneIsServed());
    EXPECT_LT(heapBytes() - before, 8 * kMiB);

    // One byte more than allowed ends the connection at once.
    const RawPeer tooLong(server.port());
    tooLong.write("\x11\x01\x01\x00\x00\x01"_ba);
    EXPECT_TRUE(waitUntil([&] { return tooLong.ended(); }));
}

TEST_F(HostilePeersTest, aPeerThatNeverReadsIsHeldBackAndDropped)
{
    const qint64 before = heapBytes();
    qint64 highest = 0;
    const RawPeer peer(server.port());
    const QByteArray ping = buildMessage(MessageType::Ping, QByteArray(60'000, 'p'));
    QByteArrayView rest = ping;
    const bool dropped = waitUntil([&] {
        const ssize_t sent = peer.write(rest);
        rest = sent == rest.size() ? QByteArrayView(ping) : rest.sliced(std::max<ssize_t>(sent, 0));
        highest = std::max(highest, heapBytes() - before);
        return sent < 0;
    });
    EXPECT_TRUE(dropped);
    EXPECT_LT(highest, 8 * kMiB);
    EXPECT_TRUE(goodPhoneIsServed());
}

TEST_F(HostilePeersTest, largePingsAreEchoedToAPeerThatReads)
{
    QByteArray pings;
    QByteArray pongs;
    for (const char mark : {'a', 'b', 'c'}) {
        const QByteArray payload(mark == 'b' ? qsizetype{kMaxPayload} : 3 * kMiB, mark);
        pings += buildMessage(MessageType::Ping, payload);
        pongs += buildMessage(MessageType::Pong, payload);
    }
    TestPhone peer(server.port());
    peer.socket.write(pings);
    EXPECT_TRUE(peer.waitForBytes(pongs.size()));
    EXPECT_TRUE(peer.received == pongs);
}

TEST_F(HostilePeersTest, idleAndSlowPeersMakeRoomForPhones)
{
    const QByteArray hello = helloMessage("slow");
    std::vector<RawPeer> peers;
    for (int i = 0; i < PhoneServer::kMaxStrangers + 40; ++i) {
        peers.emplace_back(server.port()).write(hello.first(1));
        if (i % 20 == 0) {
            ASSERT_TRUE(goodPhoneIsServed());
        }
    }
    ASSERT_TRUE(goodPhoneIsServed());
    EXPECT_EQ(std::ranges::count_if(peers, &RawPeer::ended), 40);
    EXPECT_TRUE(peers[39].ended());

    // The slow ones may take their time, and a phone that comes now gets in.
    for (qsizetype i = 1; i < 20; ++i) {
        for (const RawPeer& peer : peers) {
            peer.write(hello.sliced(i, 1));
        }
        ASSERT_TRUE(goodPhoneIsServed(1));
    }
    TestPhone late(server.port());
    EXPECT_TRUE(late.sendAndSettle(helloMessage("late")));
}

TEST_F(HostilePeersTest, strangersHoldABoundedAmountTogether)
{
    // Once such a message is half there, memory for all of it is taken.
    const auto header = encodeHeader(
        {.type = MessageType::Thumbnail, .flags = 0, .length = static_cast<quint32>(kMaxPayload)});
    const QByteArray block(256 * 1024, 'x');
    struct Sender
    {
        RawPeer peer;
        qint64 left = 8 * kMiB;
    };
    std::vector<Sender> senders;
    for (int i = 0; i < 8; ++i) {
        senders.push_back({RawPeer(server.port())});
        senders.back().peer.write({header.data(), kHeaderSize});
    }
    while (std::ranges::any_of(senders, [](const Sender& sender) { return sender.left > 0; })) {
        for (Sender& sender : senders) {
            const auto sent = sender.left > 0 ? sender.peer.write(block) : 0;
            sender.left = sent < 0 ? 0 : sender.left - sent;
        }
        ASSERT_TRUE(goodPhoneIsServed(1));
    }
    ASSERT_TRUE(goodPhoneIsServed(20));
    EXPECT_EQ(std::ranges::count_if(senders, [](const Sender& s) { return s.peer.ended(); }),
              8 - PhoneServer::kMaxStrangersBytes / kMaxPayload);
}

TEST_F(HostilePeersTest, aFloodOfMessagesLeavesTheOthersTheirTurn)
{
    const QByteArray messages = buildMessage(MessageType::StreamInfo, "{}").repeated(20'000);
    std::jthread flood([&, port = server.port()](const std::stop_token& stop) {
        const RawPeer peer(port);
        while (!stop.stop_requested()) {
            peer.write(messages);
        }
    });
    EXPECT_TRUE(goodPhoneIsServed(50));
}

TEST_F(HostilePeersTest, aThousandBrokenConnectionsLeaveNothingBehind)
{
    int disconnects = 0;
    QObject::connect(&server, &PhoneServer::phoneDisconnected, &server, [&] { ++disconnects; });
    const QByteArray stream =
        helloMessage("storm") + frameMessage(1, QByteArray(5000, 'a')) + frameMessage(2, "b");
    const qsizetype cuts[] = {stream.size(), stream.size() - 3000, stream.size() - 20, 3, 0};
    qint64 heapAtWarmUp = 0;
    int filesAtWarmUp = 0;
    for (int cycle = 0; cycle < 1000; ++cycle) {
        {
            const RawPeer peer(server.port());
            ASSERT_TRUE(peer.connected());
            peer.write(stream.first(cuts[cycle % 5]));
            if (cycle % 2 == 1) {
                peer.resetOnClose();
            } else if (cycle % 4 == 0) {
                ASSERT_TRUE(goodPhoneIsServed(1));
            }
        }
        if (cycle == 100 || cycle == 999) {
            ASSERT_TRUE(goodPhoneIsServed(20));
            if (cycle == 100) {
                heapAtWarmUp = heapBytes();
                filesAtWarmUp = openHandles();
            }
        }
    }
    EXPECT_TRUE(waitUntil([&] { return openHandles() == filesAtWarmUp; }));
    EXPECT_LT(heapBytes() - heapAtWarmUp, 2 * kMiB);
    EXPECT_GT(disconnects, 0);
    EXPECT_TRUE(goodPhoneIsServed());
}

TEST_F(HostilePeersTest, acceptsAgainOnceDescriptorsAreFree)
{
    // Everything that runs below has run once before: looking at a type for the first time takes
    // the sanitizers descriptors of their own.
    phone.received.clear();
    ASSERT_TRUE(phone.waitForBytes(1));

    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    PhoneServer fresh({.pingInterval = 50ms});
    ASSERT_TRUE(fresh.listen(0));
    const RawPeer waiting(fresh.port());
    ASSERT_TRUE(waiting.connected());
    const int lowestFree = ::dup(STDIN_FILENO);
    ::close(lowestFree);
    rlimit none = usual;
    none.rlim_cur = static_cast<rlim_t>(lowestFree);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    for (const QDeadlineTimer enough(200); !enough.hasExpired();) {
        QCoreApplication::processEvents(); // accepting the waiting peer fails
    }
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0);

    TestPhone late(fresh.port());
    EXPECT_TRUE(late.sendAndSettle(helloMessage("late")));
}

} // namespace
} // namespace pevrix
