#include "phone/PhoneServer.h"
#include "tests/support/TestPhone.h"
#include "tools/doubles/RawPeer.h"
#include "tools/doubles/ThisProcess.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <deque>
#include <fstream>
#include <random>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace pevrix {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr qint64 kMiB = 1024 * 1024;

// How long this thread could have run but waited for a processor: what a test of delays owes to the
// machine and what else runs on it.
double waitedForProcessorMs()
{
    double ran = 0;
    double waitedNs = 0;
    std::ifstream("/proc/thread-self/schedstat") >> ran >> waitedNs;
    return waitedNs / 1e6;
}

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
        phone.socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
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

TEST_F(HostilePeersTest, RandomBytesHurtNobody)
{
    std::mt19937 random(7);
    const QByteArray types("\x00\x01\x02\x10\x11\x12\x13\x30\x31\x40\xff", 11);
    for (int batch = 0; batch < 200; ++batch) {
        std::vector<RawPeer> peers;
        for (int i = 0; i < 50; ++i) {
            const RawPeer& peer = peers.emplace_back(server.port());
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

TEST_F(HostilePeersTest, APeerThatNeverReadsIsHeldBackAndDropped)
{
    const qint64 before = heapBytes();
    qint64 highest = 0;
    const QByteArray ping = buildMessage(MessageType::Ping, QByteArray(60'000, 'p'));
    Flooder flooder{RawPeer(server.port())};
    EXPECT_TRUE(waitUntil([&] {
        flooder.push(ping, true);
        highest = std::max(highest, heapBytes() - before);
        return flooder.done;
    }));
    EXPECT_LT(highest, 8 * kMiB);
    EXPECT_TRUE(goodPhoneIsServed());
}

// Its own messages wait meanwhile, and taking ours is the only sign of life that it can give.
TEST_F(HostilePeersTest, LargePingsAreEchoedToAPhoneThatReadsSlowly)
{
    constexpr qint64 kStep = 64 * 1024;
    PhoneServer strict({.pingInterval = 20ms, .silenceLimit = 600ms});
    ASSERT_TRUE(strict.listen(0));
    TestPhone slow;
    ASSERT_TRUE(slow.socket.bind(QHostAddress::LocalHost));
    slow.socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, kStep);
    slow.socket.setReadBufferSize(kStep);
    slow.socket.connectToHost(QHostAddress::LocalHost, strict.port());
    ASSERT_TRUE(slow.sendAndSettle(helloMessage("slow")));
    QObject::disconnect(&slow.socket, &QTcpSocket::readyRead, &slow.socket, nullptr);
    slow.received.clear();
    const QByteArray payload(qsizetype{kMaxPayload}, 'p');
    slow.socket.write(buildMessage(MessageType::Ping, payload).repeated(2));
    for (int step = 0; step < 90; ++step) { // for longer than silence is borne
        letEventsRunFor(10ms);
        slow.received += slow.socket.read(kStep);
    }
    const QByteArray pong = buildMessage(MessageType::Pong, payload);
    ASSERT_TRUE(waitUntil([&] {
        slow.received += slow.socket.readAll();
        return slow.closed() || slow.received.size() >= 2 * pong.size();
    }));
    const qsizetype first = slow.received.indexOf(pong);
    EXPECT_GE(first, 0);
    EXPECT_GE(slow.received.indexOf(pong, first + pong.size()), 0); // pings of ours between them
}

TEST_F(HostilePeersTest, TheOldestStrangersMakeRoomForOthers)
{
    TestPhone cable; // which takes its time to say hello
    server.addUsbSocket(openTunnel(cable));
    std::vector<RawPeer> peers;
    for (int i = 0; i < PhoneServer::kMaxStrangers + 40; ++i) {
        peers.emplace_back(server.port()).write("\x01"_ba);
        if (i % 20 == 0) {
            ASSERT_TRUE(goodPhoneIsServed());
        }
    }
    ASSERT_TRUE(goodPhoneIsServed());
    EXPECT_EQ(std::ranges::count_if(peers, &RawPeer::ended), 40);
    EXPECT_TRUE(peers[39].ended());
    EXPECT_TRUE(cable.sendAndSettle(helloMessage("cable")));
}

TEST_F(HostilePeersTest, StrangersHoldABoundedAmountTogether)
{
    // Once a message is half there, memory for all of it is taken; what is not read of the answer
    // to a whole ping is held as well.
    const qint64 before = heapBytes();
    for (const auto& [type, size] : {std::pair(MessageType::Thumbnail, 8 * kMiB),
                                     std::pair(MessageType::Ping, qint64{kMaxPayload})}) {
        const auto header = encodeHeader({.type = type, .flags = 0, .length = kMaxPayload});
        const QByteArray stream = QByteArray(header.data(), kHeaderSize) + QByteArray(size, 'x');
        qint64 highest = 0;
        std::vector<Flooder> senders;
        while (senders.size() < 7 || !senders.back().done) {
            if (senders.empty() || senders.back().done) {
                senders.push_back({RawPeer(server.port())});
            }
            senders.back().push(stream, false);
            ASSERT_TRUE(goodPhoneIsServed(1));
            highest = std::max(highest, heapBytes() - before - stream.size());
        }
        ASSERT_TRUE(goodPhoneIsServed(20));
        highest = std::max(highest, heapBytes() - before - stream.size());
        std::printf("seven strangers held %.0f MiB\n", static_cast<double>(highest) / kMiB);
        EXPECT_LT(highest, PhoneServer::kMaxStrangersBytes + 2 * kMaxPayload);
    }
}

TEST_F(HostilePeersTest, AFloodOfStrangersHardlyDelaysThePhone)
{
    int descriptions = 0;
    QObject::connect(&server, &PhoneServer::streamInfo, &server, [&] { ++descriptions; });
    const std::jthread flood([port = server.port()](const std::stop_token& stop) {
        const QByteArray stream = buildMessage(MessageType::StreamInfo, "{}").repeated(20'000);
        std::vector<Flooder> flooders;
        for (int i = 0; i < 120; ++i) {
            flooders.push_back({RawPeer(port)});
        }
        while (!stop.stop_requested()) {
            const auto pushed = std::ranges::count_if(
                flooders, [&](Flooder& flooder) { return flooder.push(stream, true); });
            std::this_thread::sleep_for(pushed > 0 ? 0ms : 1ms);
        }
    });
    ASSERT_TRUE(waitUntil([&] { return descriptions > 1000; }));

    std::vector<double> echoes;
    for (const QDeadlineTimer enough(1s); !enough.hasExpired();) {
        ASSERT_TRUE(waitUntil([pause = QDeadlineTimer(5ms)] { return pause.hasExpired(); }));
        const double waited = waitedForProcessorMs();
        QElapsedTimer clock;
        clock.start();
        ASSERT_TRUE(phone.sendAndSettle({}));
        echoes.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6 -
                         (waitedForProcessorMs() - waited));
    }
    QElapsedTimer clock;
    clock.start();
    TestPhone late(server.port());
    EXPECT_TRUE(late.sendAndSettle(helloMessage("late")));
    const double greeting = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    std::ranges::sort(echoes);
    const double median = echoes[echoes.size() / 2];
    std::printf(
        "%zu echoes beside 120 flooding strangers: median %.1f ms, worst %.1f ms; a new phone "
        "was greeted in %.1f ms\n",
        echoes.size(), median, echoes.back(), greeting);
    EXPECT_LT(median, 20);
    EXPECT_LT(echoes.back(), 150);
}

TEST_F(HostilePeersTest, AFloodOfConnectionsKeepsNoPhoneOfAnotherAddressOut)
{
    const std::jthread flood([port = server.port()](const std::stop_token& stop) {
        std::deque<RawPeer> peers;
        while (!stop.stop_requested()) {
            peers.emplace_back(port);
            if (peers.size() > 300) {
                peers.pop_front();
            }
            std::this_thread::sleep_for(100us);
        }
    });
    int greeted = 0;
    for (int i = 0; i < 10; ++i) {
        TestPhone late;
        late.socket.bind(QHostAddress(u"127.0.0.2"_s));
        late.socket.connectToHost(QHostAddress::LocalHost, server.port());
        // It takes its time to greet.
        ASSERT_TRUE(waitUntil([&, slow = QDeadlineTimer(50ms)] { return slow.hasExpired(); }));
        greeted += late.sendAndSettle(helloMessage("late")) ? 1 : 0;
    }
    EXPECT_EQ(greeted, 10);
}

TEST_F(HostilePeersTest, AThousandBrokenConnectionsLeaveNothingBehind)
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

TEST_F(HostilePeersTest, AcceptsAgainOnceDescriptorsAreFree)
{
    // Everything that runs below has run once before: looking at a type for the first time takes
    // the sanitizers descriptors of their own.
    phone.received.clear();
    ASSERT_TRUE(phone.waitForBytes(1));

    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    PhoneServer fresh({.pingInterval = 50ms});
    ASSERT_TRUE(fresh.listen(0));
    TestPhone early(fresh.port());
    ASSERT_TRUE(early.sendAndSettle(helloMessage("early")));
    testing::internal::CaptureStderr();
    const RawPeer waiting(fresh.port());
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
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_NE(told.find("cannot accept a connection"), std::string::npos);
}

} // namespace
} // namespace pevrix
