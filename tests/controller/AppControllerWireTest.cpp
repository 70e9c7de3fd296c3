// The controller with phones whose every byte the test chooses, and whose orders it hears.
#include "tests/controller/AppControllerFixture.h"
#include "tools/doubles/AnnexB.h"

#include <QTcpServer>

#include <utility>

namespace pevrix {

class AppControllerAddressTest : public AppControllerTest,
                                 public testing::WithParamInterface<const char*>
{};

TEST_P(AppControllerAddressTest, IsReachedOverEveryAddressOfThePc)
{
    QTcpServer probe;
    if (!probe.listen(QHostAddress(QLatin1StringView(GetParam())))) {
        GTEST_SKIP() << "this machine has no " << GetParam();
    }
    startApp();
    const auto phone = greet("d1", GetParam());
    EXPECT_EQ(phone->orders(), "send");
}

INSTANTIATE_TEST_SUITE_P(Addresses, AppControllerAddressTest,
                         testing::Values("127.0.0.1", "127.0.0.2", "::1"));

TEST_F(AppControllerTest, OnePhoneStreamsAndTheOthersHold)
{
    startApp();
    const auto first = greet("d1");
    const auto second = greet("d2");
    const auto third = greet("d3");
    ASSERT_TRUE(third->sendAndSettle(streamMessage(320, 240, 60))); // remembered for its turn
    EXPECT_FALSE(m_app->live());
    ASSERT_TRUE(first->sendAndSettle(streamMessage(160, 96)));
    EXPECT_EQ(cameraSize(), QSize(160, 96));
    EXPECT_EQ(first->orders() + ", " + second->orders() + third->orders(), "send, ");

    m_app->setActive(99);
    EXPECT_EQ(m_app->activeId(), 1);
    m_app->setActive(3);
    m_app->setActive(3);
    EXPECT_EQ(cameraSize(), QSize(320, 240));
    EXPECT_EQ(first->orders() + ", " + second->orders() + ", " + third->orders(),
              "send hold, , send");

    // One that greets again keeps its place, and one that held leaves no trace.
    ASSERT_TRUE(second->sendAndSettle(helloMessage("d2", token().toUtf8())));
    ASSERT_TRUE(waitForPhones(3));
    EXPECT_EQ(phone(1)[u"deviceId"_s], u"d2"_s);
    third->socket.write(buildMessage(MessageType::Bye));
    ASSERT_TRUE(waitForPhones(2));
    EXPECT_EQ(m_app->activeId(), 1);
    EXPECT_EQ(second->orders(), "");
    EXPECT_EQ(cameraSize(), QSize(160, 96)) << "what it announced is still true";
    second->socket.write(buildMessage(MessageType::Bye));
    ASSERT_TRUE(waitForPhones(1));
    EXPECT_EQ(m_app->activeId(), 1);
    EXPECT_EQ(first->orders(), "send hold send");
    first->socket.write(buildMessage(MessageType::Bye));
    ASSERT_TRUE(waitForPhones(0));
    EXPECT_EQ(greet("d3")->orders(), "send");
    EXPECT_FALSE(m_app->live()) << "nothing is known of its stream";
}

TEST_F(AppControllerTest, AStrangersStreamCountsOnceItHasSaidHello)
{
    startApp();
    const auto active = greet("d1");
    ASSERT_TRUE(active->sendAndSettle(streamMessage(160, 96)));
    const auto port = static_cast<quint16>(m_app->port());
    TestPhone forgotten(port);
    TestPhone early(port);
    const int cameras = m_camera.created;
    ASSERT_TRUE(forgotten.sendAndSettle(streamMessage(176, 144)));
    for (const QSize size : {QSize(64, 48), QSize(320, 240)}) { // the latest alone
        ASSERT_TRUE(early.sendAndSettle(streamMessage(size.width(), size.height()) +
                                        frameMessage(0, m_clip.unit(0), true)));
    }
    EXPECT_EQ(m_camera.created, cameras);
    EXPECT_EQ(m_app->framesDecoded(), 0);

    ASSERT_TRUE(forgotten.sendAndSettle(helloMessage("d2", token().toUtf8())));
    ASSERT_TRUE(early.sendAndSettle(helloMessage("d3", token().toUtf8())));
    m_app->setActive(2);
    EXPECT_EQ(cameraSize(), QSize(160, 96));
    m_app->setActive(3);
    EXPECT_EQ(cameraSize(), QSize(320, 240));
}

// Other phones have them in every keyframe as well.
TEST_F(AppControllerTest, ShowsAPhoneThatSendsItsParameterSetsByThemselves)
{
    startApp();
    const auto phone = greet("d1");
    const auto sets = parameterSets(m_clip.units[0].bytes);
    const QByteArray bare = frameMessage(0, m_clip.unit(0).sliced(std::ssize(sets)), true) +
                            frameMessage(1, m_clip.unit(1));
    ASSERT_TRUE(phone->sendAndSettle(streamMessage(160, 96) + bare));
    EXPECT_EQ(m_app->framesDecoded(), 0) << "nobody can know what they are";
    ASSERT_TRUE(phone->sendAndSettle(
        buildMessage(MessageType::VideoConfig, {sets.data(), std::ssize(sets)}) + bare));
    EXPECT_TRUE(waitUntil([&] { return m_app->framesDecoded() == 2; }));
}

TEST_F(AppControllerTest, ShowsTheNextPhoneAtItsOwnRate)
{
    startApp();
    const auto slow = wifiPhone({.deviceId = u"d1"_s});
    ASSERT_TRUE(waitForVideo());
    Phone fast(m_clip.source(60), {.deviceId = u"d2"_s});
    fast.connectTo(u"127.0.0.1"_s, static_cast<quint16>(m_app->port()), token());
    ASSERT_TRUE(waitForPhones(2));
    m_app->setActive(2);
    ASSERT_TRUE(waitForVideo());
    int shown = m_imagesShown;
    qint64 decoded = m_app->framesDecoded();
    // At the former phone's rate it is half of them, and a busy machine loses some now and then.
    EXPECT_TRUE(waitUntil([&] {
        if (m_app->framesDecoded() < decoded + 60) {
            return false;
        }
        decoded = m_app->framesDecoded();
        return m_imagesShown - std::exchange(shown, m_imagesShown) > 45;
    }));
}

TEST_F(AppControllerTest, TellsItsPortItsFiguresAndWhoUsesTheCamera)
{
    QTcpServer other;
    ASSERT_TRUE(other.listen(QHostAddress::Any));
    m_port = other.serverPort();
    m_endpoints = QStringList{u"10.0.0.5:PORT"_s};
    startApp();
    EXPECT_NE(m_app->port(), other.serverPort());
    EXPECT_EQ(m_app->serverInfo(), u"Listening on %1"_s.arg(m_app->port()));
    EXPECT_EQ(m_app->pairAddress(), u"10.0.0.5:%1"_s.arg(m_app->port()));

    EXPECT_FALSE(m_app->appConnected());
    m_camera.appConnected = true;
    EXPECT_TRUE(waitUntil([&] { return m_app->appConnected(); }));
    m_camera.appConnected = false;
    EXPECT_TRUE(waitUntil([&] { return !m_app->appConnected(); }));

    const auto phone = wifiPhone();
    EXPECT_TRUE(waitUntil([&] { return m_app->fps() >= 15 && m_app->fps() <= 45; }));
    phone->setStalled(true);
    EXPECT_TRUE(waitUntil([&] { return m_app->fps() == 0; }));
}

} // namespace pevrix
