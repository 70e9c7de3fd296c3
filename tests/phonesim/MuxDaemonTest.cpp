#include "tools/phonesim/MuxDaemon.h"

#include "tests/support/WaitFor.h"
#include "usb/MuxPacket.h"
#include "usb/Plist.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

// A PC's connection to the daemon.
class Client
{
public:
    explicit Client(const MuxDaemon& daemon)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, daemon.port());
    }

    void send(const QByteArray& bytes) { m_socket.write(bytes); }

    // The next packet; empty when the daemon closes instead.
    QVariantMap receive()
    {
        std::optional<QVariantMap> message;
        EXPECT_TRUE(waitFor([&] {
            m_buffer += m_socket.readAll();
            message = takeMessage(m_buffer);
            return message || m_socket.error() == QAbstractSocket::RemoteHostClosedError;
        }));
        return message.value_or(QVariantMap());
    }

    // The number that a request is answered with.
    int ask(const QVariantMap& request)
    {
        const QByteArray payload = buildPlist(request);
        send(buildMuxHeader(payload.size(), 7) + payload);
        return receive().value(u"Number"_s, -1).toInt();
    }

private:
    QTcpSocket m_socket;
    QByteArray m_buffer;
};

} // namespace

TEST(MuxDaemon, JudgesRequestsAsARealOneDoes)
{
    MuxDaemon daemon({.refusedConnects = 1});
    ASSERT_TRUE(daemon.appear(0));
    const int phone = daemon.attach(false);
    QVariantMap unswapped = connectRequest(phone);
    unswapped[u"PortNumber"_s] = kPhonePort;

    const struct
    {
        const char* what;
        QVariantMap request;
        int answer;
    } rows[] = {
        {"no request", {}, 1},
        {"unknown request", {{u"MessageType"_s, u"ReadBUID"_s}}, 1},
        {"unknown phone", connectRequest(phone + 1), 2},
        {"the refusal that was asked for", connectRequest(phone), 3},
        {"port in the wrong byte order", unswapped, 3},
        {"tunnel", connectRequest(phone), 0},
        {"the app has its connection", connectRequest(phone), 3},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Client(daemon).ask(row.request), row.answer) << row.what;
    }
    daemon.reopen(phone);
    EXPECT_EQ(Client(daemon).ask(connectRequest(phone)), 0);

    Client corrupt(daemon);
    corrupt.send(QByteArray(kMuxHeaderSize, '\xff'));
    EXPECT_TRUE(corrupt.receive().isEmpty());
}

TEST(MuxDaemon, TellsListenersOfPhonesAndEndsTheirTunnels)
{
    MuxDaemon daemon({});
    ASSERT_TRUE(daemon.appear(0));
    const int first = daemon.attach(false);
    Client listener(daemon);
    EXPECT_EQ(listener.ask(listenRequest()), 0);
    QVariantMap message = listener.receive();
    EXPECT_EQ(message[u"DeviceID"_s], first);
    EXPECT_EQ(message[u"Properties"_s].toMap()[u"ConnectionType"_s], u"USB"_s);

    const int second = daemon.attach(true);
    EXPECT_NE(second, first);
    message = listener.receive();
    EXPECT_EQ(message[u"DeviceID"_s], second);
    EXPECT_EQ(message[u"Properties"_s].toMap()[u"ConnectionType"_s], u"Network"_s);

    Client tunnel(daemon);
    ASSERT_EQ(tunnel.ask(connectRequest(first)), 0);
    daemon.detach(first);
    EXPECT_EQ(listener.receive(),
              (QVariantMap{{u"DeviceID"_s, first}, {u"MessageType"_s, u"Detached"_s}}));
    EXPECT_TRUE(tunnel.receive().isEmpty());
}

} // namespace pevrix
