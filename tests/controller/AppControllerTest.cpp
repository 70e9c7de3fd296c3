// The controller by itself and with phones in the network.
#include "phone/PlainText.h"
#include "phone/Protocol.h"
#include "tests/controller/AppControllerFixture.h"
#include "tests/support/HostileNames.h"
#include "tools/doubles/ThisProcess.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QUrl>

namespace pevrix {

TEST_F(AppControllerTest, PairsAPhoneAndShowsItsVideoUntilItLeaves)
{
    startApp();
    EXPECT_EQ(m_app->serverInfo(), u"Listening on %1"_s.arg(m_app->port()));
    EXPECT_EQ(m_app->status(), u"Idle (ready to pair)"_s);

    const auto simulated = wifiPhone({u"d1"_s, u"Ada"_s, u"M1"_s, u"7.5"_s});
    ASSERT_TRUE(waitForVideo());
    EXPECT_EQ(m_app->phones(), (QVariantList{QVariantMap{{u"id"_s, 1},
                                                         {u"deviceId"_s, u"d1"_s},
                                                         {u"name"_s, u"Ada"_s},
                                                         {u"phoneName"_s, u"Ada"_s},
                                                         {u"model"_s, u"M1"_s},
                                                         {u"os"_s, u"7.5"_s},
                                                         {u"usb"_s, false}}}));
    EXPECT_EQ(m_app->activeId(), 1);
    EXPECT_EQ(m_app->phoneName(), u"Ada"_s);
    EXPECT_EQ(m_app->status(), u"Live (decoding phone stream)"_s);
    EXPECT_EQ(stored("trusted/d1"), token());

    simulated->leave();
    ASSERT_TRUE(waitForPhones(0));
    EXPECT_EQ(m_app->activeId(), -1);
    EXPECT_FALSE(m_app->live());
    EXPECT_EQ(m_app->status(), u"Idle (ready to pair)"_s);
}

TEST_F(AppControllerTest, KeepsAStreamDescriptionThatComesBeforeTheHello)
{
    startApp();
    QTcpSocket early;
    early.connectToHost(QHostAddress::LocalHost, static_cast<quint16>(m_app->port()));
    early.write(buildMessage(MessageType::StreamInfo, R"({"width":64,"height":48})"));
    early.write(buildMessage(MessageType::Hello, R"({"v":1,"token":")" + token().toUtf8() + "\"}"));
    EXPECT_TRUE(waitUntil([&] { return m_app->status() == u"Live (decoding phone stream)"_s; }));
}

TEST_F(AppControllerTest, NamesAndTrustOutliveConnectionsAndThePrograms)
{
    startApp();
    const QString firstToken = token();
    auto simulated = wifiPhone();
    ASSERT_TRUE(waitForPhones(1));
    m_app->renamePhone(1, u" Kitchen "_s);
    m_app->renamePhone(99, u"Nobody"_s);
    EXPECT_EQ(phone()[u"name"_s], u"Kitchen"_s);

    simulated = wifiPhone();
    ASSERT_TRUE(waitUntil([&] { return phone()[u"id"_s].toInt() > 1; }));
    EXPECT_EQ(phone()[u"name"_s], u"Kitchen"_s);
    EXPECT_EQ(phone()[u"phoneName"_s], u"Simulated phone"_s);

    startApp();
    ASSERT_NE(token(), firstToken);
    simulated = wifiPhone({}, nullptr, firstToken);
    ASSERT_TRUE(waitForPhones(1)) << qPrintable(simulated->refusal());
    EXPECT_EQ(m_app->phoneName(), u"Kitchen"_s);
    EXPECT_EQ(stored("trusted/phonesim-1"), firstToken);
    m_app->renamePhone(m_app->activeId(), u"  "_s);
    EXPECT_EQ(m_app->phoneName(), u"Simulated phone"_s);
    EXPECT_FALSE(stored("names/phonesim-1").isValid());
}

TEST_F(AppControllerTest, TakesHostileNamesForTextWhereverTheyGo)
{
    static QStringList logged;
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& line) { logged << line; });
    startApp();
    PhoneIdentity identity;
    for (const HostileName& name : hostileNames()) {
        if (name.shown.contains(QChar(0xFFFD))) {
            continue; // the simulated phone does not send halves
        }
        identity.deviceId += u"\n[x]=;<b>"_s;
        identity.name = identity.model = name.sent;
        const auto simulated = wifiPhone(identity);
        ASSERT_TRUE(waitForPhones(1));
        EXPECT_EQ(phone()[u"name"_s], name.shown);
        EXPECT_EQ(phone()[u"model"_s], name.shown);
        m_app->renamePhone(m_app->activeId(), u"my "_s + name.sent);
        const QString renamed = phone()[u"name"_s].toString();
        EXPECT_TRUE(renamed.startsWith("my "_L1) && renamed.size() <= kMaxNameLength);
        m_app->stop(); // which writes the settings
        const Settings again(path("settings.ini"));
        EXPECT_EQ(again.names().value(identity.deviceId), renamed);
        EXPECT_EQ(again.trusted().value(identity.deviceId), token());
        startApp();
    }
    m_app.reset();
    qInstallMessageHandler(before);
    for (const QString& line : std::as_const(logged)) {
        EXPECT_FALSE(line.contains(u'\n') || line.contains("passwd"_L1)) << qPrintable(line);
    }
}

TEST_F(AppControllerTest, TakesNoPhonesWithoutACamera)
{
    ControllerOptions noCamera = options();
    noCamera.cameraLibrary = m_folder.path().toStdU16String() + u"/nothing";
    AppController app(noCamera);
    app.start();
    EXPECT_EQ(app.status(), u"softcam.dll not found or camera unavailable"_s);
    EXPECT_EQ(app.serverInfo(), u"Not listening"_s);
    EXPECT_EQ(app.port(), 0);
    EXPECT_FALSE(app.cameraReady());
}

TEST_F(AppControllerTest, StartsAgainAfterAStop)
{
    startApp();
    const int port = m_app->port();
    m_app->stop();
    EXPECT_EQ(m_app->status(), u"Stopped"_s);
    m_app->start();
    EXPECT_EQ(m_app->status(), u"Idle (ready to pair)"_s);
    EXPECT_EQ(m_app->serverInfo(), u"Listening on %1"_s.arg(port));
    const auto simulated = wifiPhone();
    EXPECT_TRUE(waitForVideo());
}

TEST_F(AppControllerTest, ForgetsPhonesButKeepsTheConnectedOne)
{
    startApp();
    const QString oldToken = token();
    const QString oldCode = m_app->qrDataUrl();
    const auto simulated = wifiPhone();
    ASSERT_TRUE(waitForVideo());

    m_app->regeneratePairing();
    EXPECT_NE(token(), oldToken);
    EXPECT_NE(m_app->qrDataUrl(), oldCode);
    EXPECT_FALSE(stored("trusted/phonesim-1").isValid());
    const auto stranger = wifiPhone({}, nullptr, oldToken);
    ASSERT_TRUE(waitForEnd(*stranger));
    EXPECT_EQ(stranger->refusal(), u"NEEDS_PAIR: Scan the QR to pair"_s);
    EXPECT_TRUE(waitForVideo()) << "the connected phone stays";
    EXPECT_EQ(m_app->activeId(), 1);
}

TEST_F(AppControllerTest, FollowsTheAddressesOfThePcWithTheSameToken)
{
    m_endpoints = QStringList();
    startApp();
    EXPECT_EQ(m_app->pairAddress(), u"No LAN address found"_s);
    const QString firstToken = token();
    const QString firstCode = m_app->qrDataUrl();
    const auto simulated = wifiPhone();
    ASSERT_TRUE(waitForPhones(1));
    EXPECT_TRUE(m_app->trustsPhones());

    m_endpoints = QStringList{u"10.0.0.5:8788"_s, u"192.168.1.7:8788"_s};
    QSignalSpy changes(m_app.get(), &AppController::changed);
    ASSERT_TRUE(waitUntil([&] { return m_app->pairAddress() == u"10.0.0.5:8788"_s; }));
    EXPECT_GT(changes.size(), 0);
    EXPECT_NE(m_app->qrDataUrl(), firstCode);
    EXPECT_EQ(token(), firstToken);
    EXPECT_TRUE(m_app->trustsPhones());
    const auto second = wifiPhone({.deviceId = u"d2"_s}, nullptr, firstToken);
    EXPECT_TRUE(waitForPhones(2));
    m_app->copyPairingLink();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().endsWith(
        u"&t=%1&h=10.0.0.5:8788,192.168.1.7:8788"_s.arg(firstToken)));
}

TEST_F(AppControllerTest, TellsWhetherVideoFlowsIsAwaitedOrStandsStill)
{
    startApp();
    EXPECT_FALSE(m_app->videoWaiting());
    const auto first = wifiPhone({.deviceId = u"d1"_s});
    ASSERT_TRUE(waitForPhones(1));
    EXPECT_TRUE(m_app->videoWaiting());
    ASSERT_TRUE(waitForVideo());
    EXPECT_FALSE(m_app->videoWaiting() || m_app->videoStalled());

    first->setStalled(true);
    ASSERT_TRUE(waitUntil([&] { return m_app->videoStalled(); }));
    EXPECT_TRUE(m_app->live()) << "the stream has not ended";
    first->setStalled(false);
    ASSERT_TRUE(waitForVideo());
    EXPECT_FALSE(m_app->videoStalled());

    const auto second = wifiPhone({.deviceId = u"d2"_s});
    second->setStalled(true);
    ASSERT_TRUE(waitForPhones(2));
    m_app->setActive(2);
    EXPECT_TRUE(m_app->videoWaiting()) << "the first phone's pictures are not the second one's";
}

TEST_F(AppControllerTest, TellsHowEachRecordingWent)
{
    using Args = QVariantList;
    startApp();
    const auto simulated = wifiPhone();
    ASSERT_TRUE(waitForVideo());
    QSignalSpy ends(m_app.get(), &AppController::recordingEnded);
    QFile inTheWay(path("file"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    m_app->setRecordingFolder(path("file"));
    m_app->toggleRecording();
    EXPECT_FALSE(m_app->recording());
    ASSERT_EQ(ends.size(), 1);
    EXPECT_EQ(ends.takeFirst().first(2), (Args{u"folderGone"_s, false}));

    m_app->setRecordingFolder(path("clips"));
    if (runsUnderWine()) {
        GTEST_SKIP() << "Wine's sink writer cannot encode";
    }
    QStringList files;
    for (int i = 0; i < 3; ++i) { // most likely within one second
        m_app->toggleRecording();
        ASSERT_TRUE(waitForVideo());
        m_app->toggleRecording();
        ASSERT_EQ(ends.size(), 1);
        const Args end = ends.takeFirst();
        EXPECT_EQ(end.first(3), (Args{u"saved"_s, true, m_app->lastRecordingPath()}));
        EXPECT_TRUE(QFile::exists(end[2].toString()));
        EXPECT_FALSE(files.contains(end[2].toString())) << "an earlier one was overwritten";
        files += end[2].toString();
    }

    m_app->toggleRecording();
    ASSERT_TRUE(waitForVideo());
    ASSERT_TRUE(QDir(path("clips")).removeRecursively());
    m_app->toggleRecording();
    ASSERT_EQ(ends.size(), 1);
    EXPECT_EQ(ends.takeFirst().first(2), (Args{u"folderGone"_s, true}));
}

TEST_F(AppControllerTest, ShowsNothingOfThisPcInCaptureMode)
{
    startApp();
    m_app->setCaptureMode(true);
    m_app->regeneratePairing();
    EXPECT_EQ(m_app->pcName(), u"DESKTOP-PEVRIX"_s);
    EXPECT_EQ(m_app->pairAddress(), u"192.168.1.42:%1"_s.arg(m_app->port()));
}

TEST_F(AppControllerTest, ShowsTheChosenPhoneAndTheNextOneWhenItLeaves)
{
    const Clip small("sizes.h264", {176, 144}, 4, 4);
    startApp();
    const auto first = wifiPhone({.deviceId = u"d1"_s});
    ASSERT_TRUE(waitForVideo());
    const auto second = wifiPhone({.deviceId = u"d2"_s}, &small);
    ASSERT_TRUE(waitForPhones(2));
    EXPECT_EQ(m_app->activeId(), 1);

    m_app->setActive(99);
    EXPECT_EQ(m_app->activeId(), 1);
    m_app->setActive(2);
    EXPECT_EQ(m_app->activeId(), 2);
    ASSERT_TRUE(waitForVideo(&small));
    m_app->setActive(1);
    ASSERT_TRUE(waitForVideo());

    first->leave();
    ASSERT_TRUE(waitForPhones(1));
    EXPECT_EQ(m_app->activeId(), 2);
    EXPECT_TRUE(waitForVideo(&small));
}

TEST_F(AppControllerTest, GoesOnShowingAPhoneWhateverItSends)
{
    const QByteArray noise(5000, '\x95');
    const auto header = encodeVideoFrameHeader(0, true, noise.size());
    const QByteArray rows[] = {
        buildMessage(MessageType::VideoFrame, "short", kKeyframeFlag),
        buildMessage(MessageType::VideoFrame, QByteArray(kTimestampSize, '\0')),
        QByteArray(header.data(), std::ssize(header)) + noise,
        buildMessage(MessageType::VideoConfig, noise),
        buildMessage(MessageType::VideoConfig),
        buildMessage(MessageType::StreamInfo, "width=1280"),
        buildMessage(MessageType::StreamInfo, R"({"width":0,"height":0,"fps":0})"),
        buildMessage(MessageType::StreamInfo, R"({"width":-1280,"height":-720,"fps":-30})"),
        buildMessage(MessageType::StreamInfo,
                     R"({"width":2147483647,"height":2147483647,"fps":2147483647})"),
        buildMessage(MessageType::StreamInfo, R"({"width":1e300,"height":"720","fps":[]})"),
        buildMessage(MessageType::Thumbnail, noise),
        buildMessage(MessageType::Active, R"({"active":true})", 0xFF),
        buildMessage(static_cast<MessageType>(255), noise),
        buildMessage(MessageType::Ping, noise),
    };
    startApp();
    const auto simulated = wifiPhone();
    for (const QByteArray& bytes : rows) {
        SCOPED_TRACE(bytes.left(64).toPercentEncoding().toStdString());
        ASSERT_TRUE(waitForVideo());
        simulated->send(bytes);
        letEventsRunFor(20ms);
        simulated->setStalled(true); // a stream begins anew after it
        simulated->setStalled(false);
    }
    EXPECT_TRUE(waitForVideo());
    EXPECT_EQ(m_app->activeId(), 1);
}

TEST_F(AppControllerTest, TakesOnlyGoodSettingsAndStoresThem)
{
    startApp();
    QSignalSpy themes(m_app.get(), &AppController::themeModeChanged);
    for (const int mode : {0, 3, -1}) { // the initial one, and two that there are not
        m_app->setThemeMode(mode);
        EXPECT_EQ(m_app->themeMode(), 0);
    }
    EXPECT_EQ(themes.size(), 0);
    m_app->setThemeMode(2);
    EXPECT_EQ(themes.size(), 1);

    QSignalSpy changes(m_app.get(), &AppController::changed);
    m_app->setRecordingFolder(QUrl::fromLocalFile(path("My clips")).toString());
    for (const char* ignored : {"", "  \t", "file:"}) {
        m_app->setRecordingFolder(QString::fromLatin1(ignored));
    }
    m_app->setRecordingFolder(u" "_s + path("My clips"));
    EXPECT_EQ(m_app->recordingFolder(), path("My clips"));
    m_app->setMinimizeToTray(true);
    EXPECT_EQ(changes.size(), 1);
    m_app->setMinimizeToTray(false);
    EXPECT_EQ(changes.size(), 2);

    startApp();
    EXPECT_EQ(m_app->themeMode(), 2);
    EXPECT_EQ(m_app->recordingFolder(), path("My clips"));
    EXPECT_FALSE(m_app->minimizeToTray());
}

TEST_F(AppControllerTest, AsksTheSystemForTheCameraAndTheFirewall)
{
    bool registered = false;
    bool blocking = true;
    int firewallTests = 0;
    m_system = {.isCameraRegistered = [&] { return registered; },
                .runCameraRegistration = [&](bool unregister) { registered = !unregister; },
                .openCameraFolder = [] { return std::filesystem::path(u"a ü"); },
                .isFirewallBlocking =
                    [&](const std::filesystem::path& program) {
                        EXPECT_EQ(program,
                                  QCoreApplication::applicationFilePath().toStdU16String());
                        ++firewallTests;
                        return blocking;
                    },
                .runFirewallHelper =
                    [&] {
                        blocking = false;
                    }};
    m_firewallInterval = 24h; // never, for now
    startApp();
    EXPECT_TRUE(m_app->firewallBlocked());
    QSignalSpy changes(m_app.get(), &AppController::changed);
    m_app->allowThroughFirewall();
    EXPECT_FALSE(m_app->firewallBlocked());
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(m_app->openCameraFolder(), u"a ü"_s);
    m_app->registerCamera();
    EXPECT_TRUE(m_app->cameraRegistered());
    EXPECT_EQ(changes.size(), 2);
    m_app->unregisterCamera();
    EXPECT_FALSE(m_app->cameraRegistered());
    EXPECT_EQ(changes.size(), 3);
    blocking = true;
    m_app->regeneratePairing();
    EXPECT_TRUE(m_app->firewallBlocked());

    m_firewallInterval = 100ms;
    startApp();
    blocking = false;
    EXPECT_TRUE(waitUntil([&] { return !m_app->firewallBlocked(); }));
    firewallTests = 0;
    EXPECT_TRUE(waitUntil([&] { return firewallTests >= 2; }));
    const auto simulated = wifiPhone();
    ASSERT_TRUE(waitForPhones(1));
    firewallTests = 0;
    letEventsRunFor(500ms);
    EXPECT_EQ(firewallTests, 0) << "with a phone there is no need to know";
}

} // namespace pevrix
