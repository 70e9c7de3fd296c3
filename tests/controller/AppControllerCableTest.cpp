// The controller with phones on a cable.
#include "tests/controller/AppControllerFixture.h"

#include <QTcpServer>

namespace pevrix {

class AppControllerCableTest : public AppControllerTest
{};

TEST_F(AppControllerCableTest, ShowsPhonesOnCablesWithoutPairing)
{
    const auto process = startAppWithCable("--phones 2");
    ASSERT_TRUE(waitForPhones(2));
    ASSERT_TRUE(waitForVideo());
    EXPECT_TRUE(m_app->usbAvailable());
    EXPECT_TRUE(phone(0)[u"usb"_s].toBool() && phone(1)[u"usb"_s].toBool());
    EXPECT_NE(phone(0)[u"deviceId"_s], phone(1)[u"deviceId"_s]);
    process->terminate();
    EXPECT_EQ(process->exitCode(), kDone) << qPrintable(process->errors());
    EXPECT_EQ(process->summary(u"accepted"_s), 2);
    EXPECT_TRUE(waitForPhones(0));
    EXPECT_TRUE(waitFor([&] { return m_availability == u"+-"; }));
}

TEST_F(AppControllerCableTest, PrefersTheCableToTheNetworkForTheSamePhone)
{
    QTcpServer reservation;
    ASSERT_TRUE(reservation.listen(QHostAddress::LocalHost));
    const quint16 daemonPort = reservation.serverPort();
    reservation.close();
    startApp(daemonPort);
    const auto wifi = wifiPhone();
    ASSERT_TRUE(waitForVideo());
    EXPECT_EQ(phone()[u"usb"_s], false);

    const auto cable = cablePhone(daemonPort);
    EXPECT_EQ(wifi->exitCode(), kLost);
    ASSERT_TRUE(waitForVideo());
    EXPECT_EQ(phone()[u"usb"_s], true);
    const int id = m_app->activeId();

    const auto late = wifiPhone();
    EXPECT_EQ(late->exitCode(), kRefused);
    EXPECT_TRUE(late->errors().contains("DUPLICATE: Already connected over USB"_L1))
        << qPrintable(late->errors());
    EXPECT_TRUE(waitForVideo());
    EXPECT_EQ(m_app->activeId(), id);
    EXPECT_EQ(m_app->phones().size(), 1);
}

TEST_F(AppControllerCableTest, KeepsFindingPhonesWhateverCableAndDaemonDo)
{
    const struct
    {
        const char* arguments;
        const char* availability; // the changes until the end
        int arrivals;             // at least
    } rows[] = {
        {"--attach-after 0.2", "+", 1},
        {"--refuse-connects 3", "+", 1},
        {"--detach-after 0.3 --attach-again-after 0.1", "+", 3},
        {"--leave reset --frames 3 --reconnect 1000 --reconnect-delay 0", "+", 3},
        {"--daemon-dies-after 0.5 --daemon-returns-after 0.2", "+-+", 1},
        // What the daemon said in the wake of the corrupt length is lost.
        {"--corrupt-length --daemon-dies-after 0.5 --daemon-returns-after 0", "+-+", 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        m_availability.clear();
        m_phonesSeen = m_arrivals = 0;
        const auto process = startAppWithCable(row.arguments);
        EXPECT_TRUE(waitFor([&] {
            return m_availability == QLatin1StringView(row.availability) &&
                   m_arrivals >= row.arrivals && m_app->live();
        })) << qPrintable(m_availability)
            << m_arrivals << qPrintable(process->output() + process->errors());
        EXPECT_TRUE(waitForVideo());
        EXPECT_EQ(m_app->phones().size(), 1);
        process->terminate();
        EXPECT_EQ(process->exitCode(), kDone) << qPrintable(process->errors());
    }
}

TEST_F(AppControllerCableTest, LeavesAPhoneAloneThatSaidGoodbyeUntilItIsPluggedInAgain)
{
    const auto process =
        startAppWithCable("--leave bye --leave-after 0.1 --reconnect 1 --reconnect-delay 0 "
                          "--detach-after 1 --attach-again-after 0");
    EXPECT_EQ(process->exitCode(), kDone) << qPrintable(process->errors());
    EXPECT_EQ(process->summary(u"accepted"_s), 2);
    const QString output = process->output();
    EXPECT_LT(output.indexOf("detached"_L1), output.lastIndexOf("accepted"_L1))
        << qPrintable(output);
    EXPECT_NE(output.indexOf("detached"_L1), -1);
}

TEST_F(AppControllerCableTest, LosesThePhoneWithItsCableOrTheDaemon)
{
    for (const char* arguments : {"--detach-after 0.2", "--daemon-dies-after 1"}) {
        SCOPED_TRACE(arguments);
        const auto process = startAppWithCable(arguments);
        EXPECT_EQ(process->exitCode(), kDone) << qPrintable(process->errors());
        EXPECT_EQ(process->summary(u"lost"_s), 0);
        EXPECT_TRUE(waitForPhones(0));
        EXPECT_FALSE(m_app->live());
    }
}

TEST_F(AppControllerCableTest, NeverListsAPhoneThatTheDaemonFoundInTheNetwork)
{
    const auto process = startAppWithCable("--network-attached");
    ASSERT_TRUE(waitFor([&] { return m_app->usbAvailable(); }));
    letEventsRunFor(500ms); // ten times as long as until the next tunnel
    EXPECT_TRUE(m_app->phones().isEmpty());
    process->terminate();
    EXPECT_EQ(process->exitCode(), kDone);
    EXPECT_EQ(process->summary(u"connections"_s), 0);
}

} // namespace pevrix
