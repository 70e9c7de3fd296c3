// The controller with phones on a cable.
#include "tests/controller/AppControllerFixture.h"
#include "tests/support/HostileNames.h"
#include "tools/phonesim/MuxDaemon.h"
#include "usb/MuxPacket.h"

#include <QThread>

#include <map>

namespace pevrix {

class AppControllerCableTest : public AppControllerTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_daemon.appear());
        // The app on a phone takes one connection at a time.
        m_daemon.answer = [this](int device) {
            const auto found = m_phones.find(device);
            const bool busy =
                found != m_phones.end() && found->second->state() != Phone::State::Over;
            return MuxDaemon::result(busy || --m_refusals >= 0 ? MuxDaemon::kRefused
                                                               : MuxDaemon::kSuccess);
        };
        QObject::connect(
            &m_daemon, &MuxDaemon::tunnelOpened, &m_daemon, [this](int device, QTcpSocket* socket) {
                m_phones[device] = std::make_unique<Phone>(
                    m_clip.source(),
                    PhoneIdentity{.deviceId = u"phone-%1"_s.arg(device), .name = u"Cable"_s});
                QObject::connect(
                    m_phones[device].get(), &Phone::received, &m_daemon,
                    [this](const Message& message) { m_heard[message.type] = message.payload; });
                m_phones[device]->takeTunnel(socket);
            });
        startApp(m_daemon.port());
        QObject::connect(m_app.get(), &AppController::changed, &m_daemon, [this] {
            if (m_app->usbAvailable() != m_availability.endsWith(u'+')) {
                m_availability += m_app->usbAvailable() ? u'+' : u'-';
            }
        });
        ASSERT_TRUE(waitUntil([this] { return m_app->usbAvailable(); }));
    }

    MuxDaemon m_daemon;
    std::map<int, std::unique_ptr<Phone>> m_phones; // by device, the last one each
    std::map<MessageType, QByteArray> m_heard;      // by any of them
    int m_refusals = 0;                             // to come
    QString m_availability;                         // + and - for each change of the USB service
};

TEST_F(AppControllerCableTest, ShowsPhonesOnCablesWithoutPairing)
{
    m_daemon.attach(1);
    m_daemon.attach(2);
    ASSERT_TRUE(waitForPhones(2));
    ASSERT_TRUE(waitForVideo());
    // Over a cable whoever takes the picture counts as well.
    QObject::connect(m_app.get(), &AppController::frameReady, m_app.get(),
                     [] { QThread::msleep(5); });
    EXPECT_TRUE(waitUntil([&] { return m_app->decodeMs() >= 5; }));
    EXPECT_TRUE(phone(0)[u"usb"_s].toBool() && phone(1)[u"usb"_s].toBool());
    EXPECT_NE(phone(0)[u"deviceId"_s], phone(1)[u"deviceId"_s]);
    const QByteArray greeting = m_heard[MessageType::UsbHello];
    EXPECT_TRUE(greeting.contains("\"pcName\":" + jsonOf(m_app->pcName()))) << greeting.data();
    EXPECT_TRUE(greeting.contains(token().toUtf8())) << greeting.data();
}

TEST_F(AppControllerCableTest, KeepsOneConnectionOfAPhoneAndPrefersTheCable)
{
    const auto first = greet("phone-1");
    const auto second = greet("phone-1");
    ASSERT_TRUE(waitUntil([&] { return first->closed(); }));
    const auto other = greet("other");
    ASSERT_TRUE(waitForPhones(2));
    EXPECT_EQ(phone()[u"usb"_s], false);

    m_daemon.attach(1);
    ASSERT_TRUE(waitUntil([&] { return second->closed(); }));
    ASSERT_TRUE(waitForPhones(2));
    EXPECT_EQ(phone(1)[u"usb"_s], true);

    TestPhone late(static_cast<quint16>(m_app->port()));
    late.socket.write(helloMessage("phone-1", token().toUtf8()));
    ASSERT_TRUE(waitUntil([&] { return late.closed(); }));
    EXPECT_EQ(late.received, "\x03\x00\x3b\x00\x00\x00"
                             R"({"code":"DUPLICATE","message":"Already connected over USB"})"_ba);
    EXPECT_EQ(other->orders(), "send") << "the others stay, and one of them followed";
    m_app->setActive(phone(1)[u"id"_s].toInt());
    EXPECT_TRUE(waitForVideo());
}

TEST_F(AppControllerCableTest, KeepsFindingThePhoneWhateverPhoneCableAndDaemonDo)
{
    m_refusals = 3;
    m_daemon.attach(1);
    ASSERT_TRUE(waitForVideo());
    m_daemon.detach(1);
    ASSERT_TRUE(waitForPhones(0));
    EXPECT_FALSE(m_app->live());
    m_daemon.attach(1);
    ASSERT_TRUE(waitForVideo());
    for (int i = 0; i < 3; ++i) {
        m_phones[1]->cutOff();
        ASSERT_TRUE(waitForPhones(0));
        ASSERT_TRUE(waitForVideo());
    }
    for (const QByteArray& lastWords : {QByteArray(), buildMuxHeader(kMuxMaxPacketSize, 0)}) {
        m_daemon.announce(lastWords);
        m_daemon.vanish();
        ASSERT_TRUE(waitForPhones(0));
        EXPECT_FALSE(m_app->live());
        ASSERT_TRUE(waitUntil([this] { return !m_app->usbAvailable(); }));
        ASSERT_TRUE(m_daemon.appear());
        ASSERT_TRUE(waitForVideo());
    }
    EXPECT_EQ(m_availability, u"+-+-+"_s);
    EXPECT_EQ(m_app->phones().size(), 1);
}

TEST_F(AppControllerCableTest, LeavesAPhoneAloneThatSaidGoodbyeUntilItIsPluggedInAgain)
{
    m_daemon.attach(1);
    ASSERT_TRUE(waitForPhones(1));
    m_phones[1]->leave();
    ASSERT_TRUE(waitForPhones(0));
    letEventsRunFor(300ms); // six times as long as until the next tunnel
    EXPECT_EQ(m_daemon.requests[1], 1);
    m_daemon.detach(1);
    m_daemon.attach(1);
    EXPECT_TRUE(waitForPhones(1));
}

} // namespace pevrix
