#include "phone/PhoneServer.h"

#include "tests/support/TestPhone.h"

#include <gtest/gtest.h>

#include <QNetworkProxy>
#include <QThread>

#include <memory>

namespace pevrix {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

const QByteArray kHelloReply =
    "\x02\x00\x79\x00\x00\x00"
    R"({"v":1,"sessionId":"dev","active":false,"request":{"codec":"h264","width":1280,)"
    R"("height":720,"fps":30,"bitrateKbps":6000}})"_ba;

// No pings come between while a test watches the bytes.
constexpr PhoneServerTimings kQuiet{.pingInterval = 1h, .silenceLimit = 1h};

class PhoneServerTest : public testing::Test
{
protected:
    PhoneServerTest() { serve(kQuiet); }

    void serve(const PhoneServerTimings& timings)
    {
        server = std::make_unique<PhoneServer>(timings);
        server->setToken(u"T"_s);
        server->setPcName(u"My \"PC\""_s);
        ASSERT_TRUE(server->listen(0));

        using S = PhoneServer;
        const auto note = [this](const QString& line) {
            log.append(line);
        };
        connect(&S::phoneConnected, [note](int id, const QString& deviceId, const QString& name,
                                           const QString& model, const QString& os, bool usb) {
            note(u"connected %1 %2 %3 %4 %5 %6"_s.arg(id).arg(deviceId, name, model, os).arg(usb));
        });
        connect(&S::phoneDisconnected, [note](int id) { note(u"disconnected %1"_s.arg(id)); });
        connect(&S::thumbnail, [note](int id, const QByteArray& jpeg) {
            note(u"thumbnail %1 "_s.arg(id) + QString::fromLatin1(jpeg.toHex()));
        });
        connect(&S::devicePaired, [note](const QString& deviceId, const QString& token) {
            note(u"paired %1 %2"_s.arg(deviceId, token));
        });
        connect(&S::usbByeReceived, [note](QTcpSocket* socket) {
            note(u"bye %1"_s.arg(socket->state() == QAbstractSocket::ConnectedState));
        });
        connect(&S::streamInfo, [note](int id, int width, int height, int fps) {
            note(u"stream %1 %2x%3@%4"_s.arg(id).arg(width).arg(height).arg(fps));
        });
        connect(&S::videoConfig, [note](int id, const QByteArray& config) {
            note(u"config %1 "_s.arg(id) + QString::fromLatin1(config.toHex()));
        });
        connect(&S::videoFrame, [note](int id, const QByteArray& unit, qint64 pts, bool key) {
            note(u"frame %1 %2 %3 "_s.arg(id).arg(pts).arg(key) +
                 QString::fromLatin1(unit.toHex()));
        });
    }

    template <typename Signal, typename Slot>
    void connect(Signal signal, Slot slot)
    {
        QObject::connect(server.get(), signal, server.get(), slot);
    }

    static QString connected(int id, const QString& deviceId, bool usb)
    {
        return u"connected %1 %2 Ann's phone P9 17.1 %3"_s.arg(id).arg(deviceId).arg(usb);
    }

    QStringList log;
    std::unique_ptr<PhoneServer> server;
};

TEST_F(PhoneServerTest, ReportsEverythingAPhoneSendsInItsOrder)
{
    TestPhone phone(server->port());
    // Media counts before the hello, too.
    ASSERT_TRUE(phone.sendAndSettle(buildMessage(MessageType::StreamInfo, R"({"fps":"x"})")));
    phone.received.clear();
    phone.socket.write(helloMessage("D"));
    ASSERT_TRUE(phone.waitForBytes(kHelloReply.size()));
    EXPECT_EQ(phone.received, kHelloReply);

    const QByteArray shortFrame = buildMessage(MessageType::VideoFrame, "1234567", kKeyframeFlag);
    ASSERT_TRUE(phone.sendAndSettle(
        buildMessage(MessageType::StreamInfo, R"({"width":640,"height":360,"fps":24})") +
        buildMessage(MessageType::VideoConfig, "\x67\x68") + frameMessage(1, "\x65", true) +
        shortFrame + frameMessage(-2, "") + buildMessage(MessageType::HelloReply, "{}") +
        buildMessage(MessageType{250}, "??") + buildMessage(MessageType::Thumbnail, "\xff\xd8") +
        helloMessage("D")));
    EXPECT_EQ(phone.received, kHelloReply + buildMessage(MessageType::Pong, "settled"));

    phone.socket.write(buildMessage(MessageType::Bye) + frameMessage(9, "late"));
    ASSERT_TRUE(
        waitUntil([&] { return phone.closed() && log.last().startsWith("disconnected"_L1); }));
    EXPECT_EQ(log,
              (QStringList{u"stream 1 1280x720@30"_s, u"paired D T"_s, connected(1, u"D"_s, false),
                           u"stream 1 640x360@24"_s, u"config 1 6768"_s, u"frame 1 1 1 65"_s,
                           u"frame 1 -2 0 "_s, u"thumbnail 1 ffd8"_s, connected(1, u"D"_s, false),
                           u"disconnected 1"_s}));
    EXPECT_EQ(server->framesReceived(), 3);

    TestPhone next(server->port());
    next.socket.write(helloMessage(""));
    ASSERT_TRUE(waitUntil([&] { return log.last() == connected(2, {}, false); }));
}

TEST_F(PhoneServerTest, TellsARefusedPhoneWhyAndListensToItNoMore)
{
    const QByteArray mismatch =
        "\x03\x00\x44\x00\x00\x00"
        R"({"code":"VERSION_MISMATCH","message":"Unsupported protocol version"})"_ba;
    const QByteArray needsPair = "\x03\x00\x35\x00\x00\x00"
                                 R"({"code":"NEEDS_PAIR","message":"Scan the QR to pair"})"_ba;
    const std::pair<QByteArray, QByteArray> cases[] = {
        {buildMessage(MessageType::Hello, R"({"v":"1","token":"T"})"), mismatch},
        {buildMessage(MessageType::Hello, "no JSON"), mismatch},
        // Far beyond what phones send, and forty times as much once it were parsed.
        {buildMessage(MessageType::Hello,
                      R"({"v":1,"token":"T","x":[)" + QByteArray("[],").repeated(350'000) + "[]]}"),
         mismatch},
        {helloMessage("D", "X"), needsPair},
        {"\x11\x01\x01\x00\x00\x01"_ba, {}}, // announces a byte too many
    };
    for (const auto& [hello, error] : cases) {
        TestPhone phone(server->port());
        phone.socket.write(hello + helloMessage("D") + frameMessage(1, "x"));
        ASSERT_TRUE(waitUntil([&] { return phone.closed(); }));
        EXPECT_EQ(phone.received, error);
    }
    EXPECT_EQ(log, QStringList());
    EXPECT_EQ(server->framesReceived(), 0);
}

TEST_F(PhoneServerTest, ForgetsThePhoneThatWasUnusedForLongestWhenManyArePaired)
{
    server->setTrusted({{u"never seen"_s, u"T"_s}, {u"used"_s, u"T"_s}});
    TestPhone connected(server->port());
    ASSERT_TRUE(connected.sendAndSettle(helloMessage("connected")));
    TestPhone crowd(server->port());
    ASSERT_TRUE(crowd.sendAndSettle(helloMessage("used")));
    const auto pair = [&](int first, int count) {
        QByteArray hellos;
        for (int i = first; i < first + count; ++i) {
            hellos += helloMessage(QByteArray::number(i));
        }
        return crowd.sendAndSettle(hellos);
    };
    ASSERT_TRUE(pair(0, static_cast<int>(PhoneServer::kMaxTrusted) - 2));
    EXPECT_EQ(server->trusted().size(), PhoneServer::kMaxTrusted);
    EXPECT_FALSE(server->trusted().contains(u"never seen"_s));
    EXPECT_TRUE(server->trusted().contains(u"used"_s));
    ASSERT_TRUE(pair(1000, 300));
    EXPECT_EQ(server->trusted().size(), PhoneServer::kMaxTrusted);
    EXPECT_TRUE(server->trusted().contains(u"connected"_s));
    EXPECT_FALSE(server->trusted().contains(u"used"_s));
}

TEST_F(PhoneServerTest, GreetsUsbPhonesAndReportsTheirGoodbye)
{
    TestPhone phone;
    QTcpSocket* const socket = openTunnel(phone);
    phone.socket.write(helloMessage("D"));
    // The hello waits in the socket's buffer already when the server takes over.
    ASSERT_TRUE(waitUntil([&] { return socket->bytesAvailable() == helloMessage("D").size(); }));
    server->addUsbSocket(socket);

    const QByteArray usbHello = "\x04\x00\x34\x00\x00\x00"
                                R"({"token":"T","pcName":"My \"PC\"","transport":"usb"})"_ba;
    ASSERT_TRUE(phone.waitForBytes(usbHello.size() + kHelloReply.size()));
    EXPECT_EQ(phone.received, usbHello + kHelloReply);

    phone.socket.write(buildMessage(MessageType::Bye, "ignored"));
    ASSERT_TRUE(waitUntil([&] { return phone.closed(); }));
    EXPECT_EQ(log, (QStringList{u"paired D T"_s, connected(1, u"D"_s, true), u"bye 1"_s,
                                u"disconnected 1"_s}));
}

TEST_F(PhoneServerTest, StartsAndHoldsHandshakenPhonesOnly)
{
    const QByteArray start = "\x20\x00\x0f\x00\x00\x00{\"active\":true}"
                             "\x21\x00\x02\x00\x00\x00{}"_ba;
    const QByteArray hold = "\x20\x00\x10\x00\x00\x00{\"active\":false}"_ba;
    TestPhone phone(server->port());
    ASSERT_TRUE(phone.sendAndSettle({}));
    phone.received.clear();
    server->setActive(1, true);
    // A receiver may answer right from the signal.
    connect(&PhoneServer::phoneConnected, [this](int id) { server->setActive(id, true); });
    phone.socket.write(helloMessage("D"));
    ASSERT_TRUE(phone.waitForBytes(kHelloReply.size() + start.size()));
    server->setActive(1, false);
    server->setActive(2, true);
    ASSERT_TRUE(phone.waitForBytes(kHelloReply.size() + start.size() + hold.size()));
    EXPECT_EQ(phone.received, kHelloReply + start + hold);
}

TEST_F(PhoneServerTest, DropsHandshakenPhonesThatFellSilentAndNobodyElse)
{
    serve({.pingInterval = 20ms, .silenceLimit = 600ms});
    TestPhone lively(server->port());
    QObject::connect(&lively.socket, &QTcpSocket::readyRead, &lively.socket,
                     [&] { lively.socket.write(buildMessage(MessageType::Pong)); });
    lively.socket.write(helloMessage("L"));
    TestPhone stranger(server->port());
    TestPhone silent(server->port());
    silent.socket.write(helloMessage("S"));
    ASSERT_TRUE(waitUntil([&] { return silent.closed(); }));
    EXPECT_EQ(log.filter(u"disconnected"_s).size(), 1);
    EXPECT_FALSE(lively.closed());
    EXPECT_FALSE(stranger.closed());
    EXPECT_EQ(stranger.received, QByteArray());

    const qsizetype first = silent.received.indexOf(R"({"t":)");
    const qsizetype second = silent.received.indexOf(R"({"t":)", first + 1);
    EXPECT_TRUE(first > 0 && second > first && silent.received[first - kHeaderSize] == 48);
}

// A dialog of the system that the program waits for may take the thread for half a minute.
TEST_F(PhoneServerTest, DropsNobodyBecauseItsOwnThreadWasHeldUp)
{
    serve({.pingInterval = 20ms, .silenceLimit = 600ms});
    TestPhone phone(server->port());
    phone.socket.write(helloMessage("L"));
    ASSERT_TRUE(phone.waitForBytes(kHelloReply.size() + 1));
    QObject::connect(&phone.socket, &QTcpSocket::readyRead, &phone.socket,
                     [&] { phone.socket.write(buildMessage(MessageType::Pong)); });
    QThread::msleep(800);
    const qsizetype received = phone.received.size();
    ASSERT_TRUE(phone.waitForBytes(received + 60)) << "three more pings";
    EXPECT_FALSE(phone.closed());
}

TEST_F(PhoneServerTest, DeliversABurstWholeToABusyReceiver)
{
    // Takes its time: messages wait in the socket when the last bytes, and the end, have come.
    connect(&PhoneServer::videoFrame, [] { QThread::msleep(5); });
    TestPhone phone(server->port());
    // The reply is awaited first: bytes left unread would turn the phone's leaving into a reset.
    ASSERT_TRUE(phone.sendAndSettle(helloMessage("D")));
    const QByteArray burst = frameMessage(7, QByteArray(50'000, 'x')).repeated(100);

    phone.socket.write(burst);
    EXPECT_TRUE(waitUntil([&] { return server->framesReceived() == 100; }));

    phone.socket.write(burst);
    phone.socket.disconnectFromHost();
    ASSERT_TRUE(waitUntil([&] { return log.last() == "disconnected 1"_L1; }));
    EXPECT_EQ(server->framesReceived(), 200);
}

TEST_F(PhoneServerTest, SurvivesReceiversThatEndTheConnectionTheyHearFrom)
{
    for (const bool abort : {false, true}) {
        TestPhone phone;
        QTcpSocket* const socket = openTunnel(phone);
        server->addUsbSocket(socket);
        QObject context;
        QObject::connect(server.get(), &PhoneServer::videoFrame, &context,
                         [&] { abort ? socket->abort() : socket->disconnectFromHost(); });
        log.clear();
        ASSERT_TRUE(phone.sendAndSettle(helloMessage("D")));
        phone.socket.write(frameMessage(1, "a") + frameMessage(2, "b"));
        ASSERT_TRUE(waitUntil([&] { return phone.closed() && log.last().startsWith("disc"_L1); }));
        EXPECT_EQ(log.filter(u"frame"_s).size(), 1);
        EXPECT_EQ(log.filter(u"disconnected"_s).size(), 1);
    }
}

TEST_F(PhoneServerTest, ListensHereWhateverProxyTheSystemNamesIfThePortIsFree)
{
    QNetworkProxy::setApplicationProxy({QNetworkProxy::Socks5Proxy, u"127.0.0.1"_s, 1});
    serve(kQuiet);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    TestPhone phone(server->port());
    EXPECT_TRUE(phone.sendAndSettle(helloMessage("D")));

    PhoneServer other;
    EXPECT_FALSE(other.listen(server->port()));
    EXPECT_EQ(other.port(), 0);
    EXPECT_TRUE(other.listen(0));
}

} // namespace
} // namespace pevrix
