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
    const QByteArray trust = "[trusted]\nd1=" + token().toUtf8() + '\n';
    EXPECT_TRUE(waitUntil([&] { return stored().contains(trust); })) << "while the program runs";

    simulated->leave();
    ASSERT_TRUE(waitForPhones(0));
    EXPECT_EQ(m_app->activeId(), -1);
    EXPECT_FALSE(m_app->live());
    EXPECT_EQ(m_app->status(), u"Idle (ready to pair)"_s);
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
    EXPECT_TRUE(stored().contains("[trusted]\nphonesim-1=" + firstToken.toUtf8()));
    EXPECT_TRUE(stored().contains("[names]\nphonesim-1=Kitchen\n"));
    m_app->renamePhone(m_app->activeId(), u"  "_s);
    EXPECT_EQ(m_app->phoneName(), u"Simulated phone"_s);
    EXPECT_TRUE(waitUntil([&] { return !stored().contains("Kitchen"); }));
}

TEST_F(AppControllerTest, TakesHostileNamesForTextWhereverTheyGo)
{
    static QStringList logged;
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& line) { logged << line; });
    startApp();
    QString id;
    Settings::DeviceMap renamed;
    for (const HostileName& name : hostileNames()) {
        id += u"\n[x]=;<b>//"_s;
        const QByteArray text = jsonOf(name.sent);
        TestPhone hostile(static_cast<quint16>(m_app->port()));
        ASSERT_TRUE(hostile.sendAndSettle(buildMessage(
            MessageType::Hello, R"({"v":1,"token":")" + token().toUtf8() + R"(","deviceId":)" +
                                    jsonOf(id) + R"(,"name":)" + text + R"(,"model":)" + text +
                                    R"(,"osVersion":)" + text + '}')));
        for (const QString& key : {u"name"_s, u"model"_s, u"os"_s}) {
            EXPECT_EQ(phone()[key], name.shown);
        }
        m_app->renamePhone(m_app->activeId(), u"my "_s + name.sent);
        renamed[id] = phone()[u"name"_s].toString();
        EXPECT_TRUE(renamed[id].startsWith("my "_L1) && renamed[id].size() <= kMaxNameLength);
        hostile.socket.abort();
        ASSERT_TRUE(waitForPhones(0));
    }
    m_app->stop(); // which writes the settings
    ASSERT_TRUE(QFile::copy(path("settings.ini"), path("read-anew.ini")));
    const Settings again(path("read-anew.ini"));
    EXPECT_EQ(again.names(), renamed);
    EXPECT_EQ(again.trusted().size(), renamed.size());
    EXPECT_EQ(again.trusted().value(id), token());
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
    EXPECT_TRUE(waitUntil([&] { return !stored().contains("[trusted]"); }));
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
    m_app->setActive(1);
    ASSERT_TRUE(waitForVideo());
    first->leave();
    ASSERT_TRUE(waitForPhones(1));
    EXPECT_TRUE(m_app->videoWaiting()) << "nor are they when it has left";
}

TEST_F(AppControllerTest, TellsHowEachRecordingWent)
{
    using Args = QVariantList;
    startApp();
    QSignalSpy ends(m_app.get(), &AppController::recordingEnded);
    m_app->toggleRecording(); // nothing to record
    const auto simulated = wifiPhone();
    ASSERT_TRUE(waitForVideo());
    m_app->toggleOutput();
    m_app->toggleRecording(); // paused
    m_app->toggleOutput();
    EXPECT_FALSE(m_app->recording() || !ends.isEmpty());
    QFile inTheWay(path("file"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    m_app->setRecordingFolder(path("file"));
    m_app->toggleRecording();
    EXPECT_FALSE(m_app->recording());
    ASSERT_EQ(ends.size(), 1);
    EXPECT_EQ(ends.takeFirst().first(2), (Args{u"folderGone"_s, false}));

    m_app->setRecordingFolder(path("new/clips"));
    if (runsUnderWine()) {
        GTEST_SKIP() << "Wine's sink writer cannot encode";
    }
    QStringList files;
    for (int i = 0; i < 3; ++i) { // most likely within one second
        m_app->toggleRecording();
        ASSERT_TRUE(waitForVideo());
        simulated->setStalled(true); // a stream of the same size begins anew after it
        simulated->setStalled(false);
        ASSERT_TRUE(waitForVideo());
        const bool resized = i == 2;
        if (resized) {
            simulated->send(streamMessage(320, 240));
            ASSERT_TRUE(waitUntil([&] { return !ends.isEmpty(); }));
        } else {
            m_app->toggleRecording();
        }
        EXPECT_FALSE(m_app->recording());
        ASSERT_EQ(ends.size(), 1);
        const Args end = ends.takeFirst();
        EXPECT_EQ(end.first(3),
                  (Args{resized ? u"resized"_s : u"saved"_s, true, m_app->lastRecordingPath()}));
        EXPECT_GT(QFile(end[2].toString()).size(), 1000);
        EXPECT_FALSE(files.contains(end[2].toString())) << "an earlier one was overwritten";
        files += end[2].toString();
    }

    simulated->setStalled(true);
    simulated->setStalled(false);
    ASSERT_TRUE(waitForVideo());
    m_app->toggleRecording();
    m_app->toggleRecording();
    EXPECT_EQ(ends.takeFirst().first(2), (Args{u"empty"_s, true})) << "no picture in between";
    m_app->toggleRecording();
    ASSERT_TRUE(QDir(path("new")).removeRecursively());
    ASSERT_TRUE(waitUntil([&] { return !ends.isEmpty(); })) << "it ends by itself";
    EXPECT_EQ(ends.takeFirst().first(2), (Args{u"folderGone"_s, true}));
    EXPECT_FALSE(m_app->recording());
}

TEST_F(AppControllerTest, ShowsNothingOfThisPcInCaptureMode)
{
    startApp();
    m_app->setCaptureMode(true);
    m_app->regeneratePairing();
    EXPECT_EQ(m_app->pcName(), u"DESKTOP-PEVRIX"_s);
    EXPECT_EQ(m_app->pairAddress(), u"192.168.1.42:%1"_s.arg(m_app->port()));
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

    m_firewallInterval = 50ms;
    startApp();
    blocking = false;
    EXPECT_TRUE(waitUntil([&] { return !m_app->firewallBlocked(); }));
    firewallTests = 0;
    EXPECT_TRUE(waitUntil([&] { return firewallTests >= 2; }));
    const auto simulated = wifiPhone();
    ASSERT_TRUE(waitForPhones(1));
    firewallTests = 0;
    letEventsRunFor(250ms);
    EXPECT_EQ(firewallTests, 0) << "with a phone there is no need to know";
}

} // namespace pevrix
