#include "usb/UsbMuxClient.h"

#include "tools/doubles/ThisProcess.h"
#include "tools/doubles/WaitUntil.h"
#include "tools/phonesim/MuxDaemon.h"
#include "usb/MuxPacket.h"
#include "usb/Plist.h"

#include <gmock/gmock.h>

#include <QPointer>

#include <random>

namespace pevrix {
namespace {

using testing::ElementsAre;

class UsbMuxClientTest : public testing::Test
{
protected:
    UsbMuxClientTest()
    {
        QObject::connect(&client, &UsbMuxClient::tunnelReady, &client,
                         [this](QTcpSocket* socket) { tunnels += socket; });
        QObject::connect(&client, &UsbMuxClient::availabilityChanged, &client,
                         [this](bool available) { changes.push_back(available); });
        client.start();
    }

    void waitUntilAvailable()
    {
        ASSERT_TRUE(waitUntil([this] { return client.available(); }));
    }

    void waitForRequests(int device, int count)
    {
        ASSERT_TRUE(waitUntil([&] { return daemon.requests[device] >= count; })) << device;
    }

    void waitForTunnels(qsizetype count)
    {
        ASSERT_TRUE(waitUntil([&] { return tunnels.size() >= count; })) << tunnels.size();
    }

    // Lets the tunnel timer fire three times: it retries a phone that the daemon always refuses.
    void letTheTunnelTimerFire()
    {
        daemon.announce(daemon.attached("99"));
        waitForRequests(99, daemon.requests[99] + 4);
        daemon.announce(daemon.detached(99));
    }

    void SetUp() override
    {
        daemon.answer = [](int device) {
            return MuxDaemon::result(device == 99 ? 3 : 0);
        };
        waitUntilAvailable();
    }

    // Timers short enough for tests.
    UsbMuxOptions options()
    {
        EXPECT_TRUE(daemon.appear());
        return {.port = daemon.port(),
                .reconnectInterval = std::chrono::milliseconds(20),
                .tunnelInterval = std::chrono::milliseconds(20)};
    }

    MuxDaemon daemon;
    UsbMuxClient client{options()};
    QList<QPointer<QTcpSocket>> tunnels;
    std::vector<bool> changes;
};

TEST_F(UsbMuxClientTest, TurnsAnAttachedPhoneIntoAConnectedSocket)
{
    // The daemon may say something else first, and the phone may speak right behind its answer.
    daemon.answer = [](int device) {
        return MuxDaemon::packet("<key>MessageType</key><string>Logs</string>") +
               MuxDaemon::result(device == 7 ? 0 : 3) + "hello";
    };
    const QByteArray phone = daemon.attached("7");
    daemon.announce(phone.left(30));
    daemon.listeners.front()->flush();
    daemon.announce(phone.mid(30));
    waitForTunnels(1);

    const QByteArray listen = buildPlist(listenRequest());
    const QByteArray connect = buildPlist(connectRequest(7));
    EXPECT_THAT(daemon.received, ElementsAre(buildMuxHeader(listen.size(), 1) + listen,
                                             buildMuxHeader(connect.size(), 2) + connect));
    QTcpSocket* socket = tunnels.front();
    ASSERT_TRUE(socket);
    EXPECT_EQ(socket->parent(), &client);
    QByteArray heard;
    EXPECT_TRUE(waitUntil([&] { return (heard += socket->readAll()).size() >= 5; }));
    EXPECT_EQ(heard, "hello");
    socket->write("welcome");
    EXPECT_TRUE(waitUntil([&] { return daemon.tunnels[7]->bytesAvailable() == 7; }));
    letTheTunnelTimerFire();
    EXPECT_EQ(daemon.requests[7], 1);
    // What happens to the socket from now on is none of the client's business.
    daemon.announce(daemon.detached(7));
    letTheTunnelTimerFire();
    EXPECT_EQ(socket->state(), QAbstractSocket::ConnectedState);
    EXPECT_THAT(changes, ElementsAre(true));
}

TEST_F(UsbMuxClientTest, IgnoresWhatIsNoPhoneOnUsb)
{
    using D = MuxDaemon;
    for (const QByteArray& message : {D::attached("1", "Network"), D::attached("4294967297"),
                                      D::attached("-1"), D::attached(""),
                                      D::packet("<key>MessageType</key><string>Attached</string>"
                                                "<key>DeviceID</key><integer>1</integer>"),
                                      D::packet("<key>MessageType</key><integer>1</integer>"),
                                      D::packet(""), D::result(5), D::detached(12)}) {
        daemon.announce(message);
    }
    letTheTunnelTimerFire();
    EXPECT_THAT(daemon.requests.keys(), ElementsAre(99));
    EXPECT_THAT(changes, ElementsAre(true));
}

TEST_F(UsbMuxClientTest, TriesARefusedPhoneAgainButNeverTwiceAtOnce)
{
    // Device 1 gets no success at first, which is the number 0 alone; 2 gets no answer.
    daemon.answer = [this](int device) {
        const QByteArray result = "<key>MessageType</key><string>Result</string>";
        const QByteArray answers[] = {
            MuxDaemon::result(3), QByteArray(16, '\1'), MuxDaemon::packet(result),
            MuxDaemon::packet(result + "<key>Number</key><string>0</string>"),
            MuxDaemon::result(0)};
        return device == 1 ? answers[daemon.requests[1] - 1] : QByteArray();
    };
    daemon.announce(daemon.attached("2") + daemon.attached("1"));
    waitForTunnels(1);
    EXPECT_EQ(daemon.requests[1], 5);
    EXPECT_EQ(daemon.requests[2], 1);
    // Unplugging it gives the waiting attempt up.
    daemon.announce(daemon.detached(2));
    EXPECT_TRUE(waitUntil([this] { return daemon.connections() == 2; }));
}

TEST_F(UsbMuxClientTest, ReplacesALostTunnelUnlessThePhoneSaidGoodbye)
{
    daemon.announce(daemon.attached("1"));
    waitForTunnels(1);
    delete tunnels[0];
    waitForTunnels(2);

    QTcpSocket stranger;
    client.noteUsbBye(&stranger);
    client.noteUsbBye(tunnels[1]);
    delete tunnels[1];
    letTheTunnelTimerFire();
    EXPECT_EQ(daemon.requests[1], 2);

    // Announced again it gets one tunnel at once; unplugged and plugged in it is like new.
    daemon.announce(daemon.attached("1"));
    waitForTunnels(3);
    delete tunnels[2];
    letTheTunnelTimerFire();
    EXPECT_EQ(daemon.requests[1], 3);
    daemon.announce(daemon.detached(1) + daemon.attached("1"));
    waitForTunnels(4);
    delete tunnels[3];
    waitForTunnels(5);
}

TEST_F(UsbMuxClientTest, ATunnelLostAfterItsSuccessorCameOpensNoThird)
{
    daemon.announce(daemon.attached("1"));
    waitForTunnels(1);
    daemon.announce(daemon.attached("1"));
    waitForTunnels(2);
    delete tunnels[0];
    letTheTunnelTimerFire();
    EXPECT_EQ(daemon.requests[1], 2);
}

TEST_F(UsbMuxClientTest, FindsTheDaemonAgainAfterLosingIt)
{
    daemon.answer = [](int device) {
        return device == 2 ? QByteArray() : MuxDaemon::result(device == 99 ? 3 : 0);
    };
    daemon.announce(daemon.attached("1") + daemon.attached("2"));
    waitForTunnels(1);
    waitForRequests(2, 1);
    client.noteUsbBye(tunnels[0]);
    daemon.vanish();
    ASSERT_TRUE(waitUntil([this] { return !client.available(); }));
    // Only the tunnel is left, in its owner's hands: the attempt for 2 is gone.
    EXPECT_TRUE(waitUntil([this] { return client.findChildren<QTcpSocket*>().size() == 1; }));
    delete tunnels[0];
    client.start();                                  // changes nothing
    letEventsRunFor(std::chrono::milliseconds(100)); // several vain tries to connect
    EXPECT_THAT(changes, ElementsAre(true, false));

    daemon.listenAnswer = MuxDaemon::result(1);
    ASSERT_TRUE(daemon.appear());
    ASSERT_TRUE(waitUntil([this] { return !daemon.listeners.isEmpty(); }));
    EXPECT_FALSE(client.available());
    daemon.vanish();
    daemon.listenAnswer = MuxDaemon::result(0) + daemon.attached("1");
    ASSERT_TRUE(daemon.appear());
    waitForTunnels(2);
    EXPECT_THAT(changes, ElementsAre(true, false, true));
    delete tunnels[1];
    waitForTunnels(3); // its goodbye is forgotten
    letTheTunnelTimerFire();
    EXPECT_EQ(daemon.requests[2], 1) << "the phones of the lost daemon are forgotten";
}

TEST_F(UsbMuxClientTest, SurvivesAHostileDaemon)
{
    std::mt19937 random(20240229);
    const auto damaged = [&](QByteArray bytes, std::uint_fast32_t bytesToChange) {
        for (; bytesToChange > 0; --bytesToChange) {
            bytes[static_cast<qsizetype>(random()) % bytes.size()] = static_cast<char>(random());
        }
        return bytes;
    };
    daemon.answer = [&](int) {
        return damaged(MuxDaemon::result(0), random() % 3);
    };
    QObject::connect(&client, &UsbMuxClient::tunnelReady, &client,
                     [](QTcpSocket* socket) { socket->deleteLater(); });
    const QByteArray seeds[] = {daemon.attached("1"), daemon.detached(1), daemon.result(0),
                                daemon.attached("2", "<dict>"), daemon.packet("<array>\xFF&lt;")};
    for (int restart = 0; restart < 40; ++restart) {
        for (int i = 0; i < 250; ++i) {
            const QByteArray& seed = seeds[i % std::ssize(seeds)];
            daemon.announce(seed.first(kMuxHeaderSize) +
                            damaged(seed.mid(kMuxHeaderSize), random() % 4));
        }
        // The rest of this stream has no framing any more.
        daemon.announce(damaged(seeds[0], 9) + damaged(seeds[1], 9));
        letEventsRunFor(std::chrono::milliseconds(5));
        daemon.vanish();
        ASSERT_TRUE(waitUntil([this] { return !client.available(); }));
        ASSERT_TRUE(daemon.appear());
        waitUntilAvailable();
    }
    daemon.answer = [](int) {
        return MuxDaemon::result(0);
    };
    tunnels.clear();
    daemon.announce(daemon.attached("7"));
    waitForTunnels(1);
}

TEST_F(UsbMuxClientTest, TakesNoMorePhonesThanABusCanHold)
{
    daemon.answer = [](int device) {
        return device == 99 ? MuxDaemon::result(3) : QByteArray();
    };
    for (int id = 1000; id < 2000; ++id) {
        daemon.announce(daemon.attached(QByteArray::number(id)));
    }
    daemon.announce(daemon.detached(1000));
    letTheTunnelTimerFire();
    EXPECT_LE(daemon.requests.size(), 127 + 1);
}

TEST_F(UsbMuxClientTest, LeavesNothingBehindWhenPhonesComeAndGo)
{
    const auto cycle = [&] {
        tunnels.clear();
        daemon.announce(daemon.attached("1"));
        waitForTunnels(1);
        client.noteUsbBye(tunnels[0]);
        daemon.announce(daemon.detached(1));
        delete tunnels[0];
        ASSERT_TRUE(waitUntil([&] { return daemon.connections() == 1; }));
    };
    cycle();
    const int before = openHandles();
    for (int i = 0; i < 500; ++i) {
        cycle();
    }
    EXPECT_EQ(openHandles(), before);
    EXPECT_TRUE(client.findChildren<QTcpSocket*>().isEmpty());
}

} // namespace
} // namespace pevrix
