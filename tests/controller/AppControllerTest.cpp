#include "controller/AppController.h"

#include "tests/support/PhoneProcess.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QImage>
#include <QSettings>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

constexpr int kDone = 0;
constexpr int kRefused = 4;
constexpr int kLost = 5;
constexpr quint16 kNobodysPort = 1; // where no usbmux daemon is

// The real controller with ports, settings and token of its own, and real simulated phones.
class AppControllerTest : public testing::Test
{
protected:
    [[nodiscard]] ControllerOptions options(quint16 usbPort = kNobodysPort) const
    {
        ControllerOptions options;
        options.port = 0;
        options.usb.port = usbPort;
        options.usb.reconnectInterval = 50ms;
        options.usb.tunnelInterval = 50ms;
        options.settingsFile = path("settings.ini");
        options.tokenFolder = m_folder.path();
        options.cameraLibrary = TESTCAM_NAME;
        options.system = m_system;
        options.statisticsInterval = m_statisticsInterval;
        return options;
    }

    // A program start on the same settings.
    void startApp(quint16 usbPort = kNobodysPort)
    {
        m_app.reset(); // before the next one reads its settings
        m_app = std::make_unique<AppController>(options(usbPort));
        QObject::connect(m_app.get(), &AppController::frameReady, m_app.get(),
                         [this](const QImage& image) { m_imageSize = image.size(); });
        QObject::connect(m_app.get(), &AppController::changed, m_app.get(),
                         [this, app = m_app.get()] { note(*app); });
        m_app->start();
        ASSERT_GT(m_app->port(), 0);
    }

    void note(const AppController& app)
    {
        if (app.usbAvailable() != m_availability.endsWith(u'+')) {
            m_availability += app.usbAvailable() ? u'+' : u'-';
        }
        m_arrivals += app.phones().size() > m_phonesSeen ? 1 : 0;
        m_phonesSeen = app.phones().size();
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    [[nodiscard]] QString token() const
    {
        QFile file(path("pairing-token.txt"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed()
                                              : QString();
    }

    [[nodiscard]] std::unique_ptr<PhoneProcess> wifiPhone(const char* arguments = "",
                                                          const QString& ownToken = {}) const
    {
        return std::make_unique<PhoneProcess>(
            words("--size 160x120") + words(arguments) +
            QStringList{u"--port"_s, QString::number(m_app->port()), u"--token"_s,
                        ownToken.isEmpty() ? token() : ownToken});
    }

    // Phones on a cable and a program that looks for them.
    [[nodiscard]] std::unique_ptr<PhoneProcess> startAppWithCable(const char* arguments = "")
    {
        auto phone = cablePhone(0, arguments);
        const QString announcement = u"usbmux daemon on port "_s;
        EXPECT_TRUE(waitFor([&] { return phone->output().contains(announcement); }));
        startApp(phone->output().section(announcement, 1).section(u'\n', 0, 0).toUShort());
        return phone;
    }

    [[nodiscard]] static std::unique_ptr<PhoneProcess> cablePhone(quint16 port,
                                                                  const char* arguments = "")
    {
        return std::make_unique<PhoneProcess>(
            words("--usbmux --size 160x120") + words(arguments) +
            QStringList{u"--usbmux-port"_s, QString::number(port)});
    }

    [[nodiscard]] QVariantMap phone(qsizetype index = 0) const
    {
        return m_app->phones().value(index).toMap();
    }

    [[nodiscard]] bool waitForPhones(qsizetype count) const
    {
        return waitFor([&] { return m_app->phones().size() == count; });
    }

    // Pictures of this size come, from now on.
    [[nodiscard]] bool waitForVideo(QSize size = {160, 120})
    {
        m_imageSize = {};
        const qint64 decoded = m_app->framesDecoded();
        return waitFor([&] {
            return m_app->live() && m_imageSize == size && m_app->framesDecoded() >= decoded + 3;
        });
    }

    [[nodiscard]] QVariant stored(const char* key) const
    {
        return QSettings(path("settings.ini"), QSettings::IniFormat).value(QLatin1StringView(key));
    }

    QTemporaryDir m_folder;
    SystemFunctions m_system;
    std::chrono::milliseconds m_statisticsInterval{500};
    std::unique_ptr<AppController> m_app;
    QSize m_imageSize;      // of the last picture
    QString m_availability; // + and - for each change of the USB service
    qsizetype m_phonesSeen = 0;
    int m_arrivals = 0;
};

} // namespace

TEST_F(AppControllerTest, PairsAPhoneAndShowsItsVideoUntilItLeaves)
{
    startApp();
    EXPECT_EQ(m_app->serverInfo(), u"Listening on %1"_s.arg(m_app->port()));
    EXPECT_EQ(m_app->status(), u"Idle (ready to pair)"_s);

    const auto process = wifiPhone("--device-id d1 --name Ada --model M1 --os 7.5");
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

    process->terminate();
    EXPECT_EQ(process->exitCode(), kDone);
    ASSERT_TRUE(waitForPhones(0));
    EXPECT_EQ(m_app->activeId(), -1);
    EXPECT_FALSE(m_app->live());
    EXPECT_EQ(m_app->status(), u"Idle (ready to pair)"_s);
}

TEST_F(AppControllerTest, NamesAndTrustOutliveConnectionsAndThePrograms)
{
    startApp();
    const QString firstToken = token();
    auto process = wifiPhone();
    ASSERT_TRUE(waitForPhones(1));
    m_app->renamePhone(1, u" Kitchen "_s);
    m_app->renamePhone(99, u"Nobody"_s);
    EXPECT_EQ(phone()[u"name"_s], u"Kitchen"_s);

    process = wifiPhone();
    ASSERT_TRUE(waitFor([&] { return phone()[u"id"_s].toInt() > 1; }));
    EXPECT_EQ(phone()[u"name"_s], u"Kitchen"_s);
    EXPECT_EQ(phone()[u"phoneName"_s], u"Simulated phone"_s);

    startApp();
    ASSERT_NE(token(), firstToken);
    process = wifiPhone("", firstToken);
    ASSERT_TRUE(waitForPhones(1)) << qPrintable(process->errors());
    EXPECT_EQ(m_app->phoneName(), u"Kitchen"_s);
    EXPECT_EQ(stored("trusted/phonesim-1"), firstToken);
    m_app->renamePhone(m_app->activeId(), u"  "_s);
    EXPECT_EQ(m_app->phoneName(), u"Simulated phone"_s);
    EXPECT_FALSE(stored("names/phonesim-1").isValid());
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
    const auto process = wifiPhone();
    EXPECT_TRUE(waitForVideo());
}

TEST_F(AppControllerTest, ForgetsPhonesButKeepsTheConnectedOne)
{
    startApp();
    const QString oldToken = token();
    const QString oldCode = m_app->qrDataUrl();
    const auto process = wifiPhone();
    ASSERT_TRUE(waitForVideo());

    m_app->regeneratePairing();
    EXPECT_NE(token(), oldToken);
    EXPECT_NE(m_app->qrDataUrl(), oldCode);
    EXPECT_FALSE(stored("trusted/phonesim-1").isValid());
    const auto stranger = wifiPhone("", oldToken);
    EXPECT_EQ(stranger->exitCode(), kRefused);
    EXPECT_TRUE(stranger->errors().contains("NEEDS_PAIR"_L1)) << qPrintable(stranger->errors());
    EXPECT_TRUE(waitForVideo()) << "the connected phone stays";
    EXPECT_EQ(m_app->activeId(), 1);
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
    constexpr QSize kSmall(64, 64);
    startApp();
    const auto first = wifiPhone("--device-id d1");
    ASSERT_TRUE(waitForVideo());
    const auto second = wifiPhone("--device-id d2 --size 64x64");
    ASSERT_TRUE(waitForPhones(2));
    EXPECT_EQ(m_app->activeId(), 1);

    m_app->setActive(99);
    EXPECT_EQ(m_app->activeId(), 1);
    m_app->setActive(2);
    EXPECT_EQ(m_app->activeId(), 2);
    ASSERT_TRUE(waitForVideo(kSmall));
    m_app->setActive(1);
    ASSERT_TRUE(waitForVideo());

    first->terminate();
    ASSERT_TRUE(waitForPhones(1));
    EXPECT_EQ(m_app->activeId(), 2);
    EXPECT_TRUE(waitForVideo(kSmall));
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
                .isFirewallBlocking =
                    [&](const std::filesystem::path& program) {
                        EXPECT_EQ(program, std::filesystem::read_symlink("/proc/self/exe"));
                        ++firewallTests;
                        return blocking;
                    },
                .runFirewallHelper =
                    [&] {
                        blocking = false;
                    }};
    m_statisticsInterval = 24h; // never, for now
    startApp();
    EXPECT_TRUE(m_app->firewallBlocked());
    QSignalSpy changes(m_app.get(), &AppController::changed);
    m_app->allowThroughFirewall();
    EXPECT_FALSE(m_app->firewallBlocked());
    EXPECT_EQ(changes.size(), 1);
    m_app->registerCamera();
    EXPECT_TRUE(m_app->cameraRegistered());
    EXPECT_EQ(changes.size(), 2);
    m_app->unregisterCamera();
    EXPECT_FALSE(m_app->cameraRegistered());
    EXPECT_EQ(changes.size(), 3);
    blocking = true;
    m_app->regeneratePairing();
    EXPECT_TRUE(m_app->firewallBlocked());

    // From here on 20 ticks take 100 ms.
    m_statisticsInterval = 5ms;
    startApp();
    blocking = false;
    EXPECT_TRUE(waitFor([&] { return !m_app->firewallBlocked(); }));
    firewallTests = 0;
    EXPECT_TRUE(waitFor([&] { return firewallTests >= 2; }));
    const auto process = wifiPhone();
    ASSERT_TRUE(waitForPhones(1));
    firewallTests = 0;
    letEventsRunFor(500ms);
    EXPECT_EQ(firewallTests, 0) << "with a phone there is no need to know";
}

TEST_F(AppControllerTest, ShowsPhonesOnCablesWithoutPairing)
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

TEST_F(AppControllerTest, PrefersTheCableToTheNetworkForTheSamePhone)
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

TEST_F(AppControllerTest, KeepsFindingPhonesWhateverCableAndDaemonDo)
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

TEST_F(AppControllerTest, LeavesAPhoneAloneThatSaidGoodbyeUntilItIsPluggedInAgain)
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

TEST_F(AppControllerTest, LosesThePhoneWithItsCableOrTheDaemon)
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

TEST_F(AppControllerTest, NeverListsAPhoneThatTheDaemonFoundInTheNetwork)
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
