#include "controller/AppController.h"

#include "controller/Log.h"
#include "phone/Log.h"
#include "phone/Protocol.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStyleHints>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

AppController::AppController(const ControllerOptions& options, QObject* parent)
    : QObject(parent)
    , m_options(options)
    , m_sink(options.cameraLibrary)
    , m_usb(options.usb)
    , m_pipeline(m_sink)
    , m_firewall(m_options.system, options.firewallInterval)
    , m_settings(options.settingsFile)
    , m_pairing(options.tokenFolder, options.findEndpoints, options.addressInterval)
    , m_status(u"Idle"_s)
    , m_serverInfo(u"Not listening"_s)
{
    m_server.setTrusted(m_settings.trusted());
    m_phones.roster().setNames(m_settings.names());
    connect(QGuiApplication::styleHints(), &QStyleHints::colorSchemeChanged, this,
            &AppController::osDarkChanged);
    connect(&m_pipeline, &LivePipeline::frameReady, this, &AppController::frameReady);
    connect(&m_pipeline, &LivePipeline::stateChanged, this, &AppController::onPipelineState);
    connect(&m_pipeline, &LivePipeline::pictureCame, this, &AppController::changed);
    connect(&m_pipeline, &LivePipeline::recordingEnded, this, &AppController::onRecordingEnded);
    connect(&m_firewall, &FirewallWatch::changed, this, &AppController::changed);
    m_statisticsClock.start();
    m_statisticsTimer.setInterval(options.statisticsInterval);
    connect(&m_statisticsTimer, &QTimer::timeout, this, &AppController::onStatisticsTick);
    connect(&m_pairing, &PairingCode::changed, this, &AppController::onPairingChanged);
    connectServer();
    connectUsb();
    m_usb.start();
}

AppController::~AppController()
{
    stop();
    // The members that are destroyed next close their sockets and report it; we no longer listen.
    m_server.disconnect(this);
    m_usb.disconnect(this);
}

void AppController::connectServer()
{
    connect(&m_server, &PhoneServer::phoneConnected, this,
            [this](int id, const QString& deviceId, const QString& name, const QString& model,
                   const QString& os, bool usb) {
                onPhoneConnected({.id = id,
                                  .deviceId = deviceId,
                                  .name = {}, // the roster fills it in
                                  .phoneName = name,
                                  .model = model,
                                  .os = os,
                                  .usb = usb});
            });
    connect(&m_server, &PhoneServer::phoneDisconnected, this, &AppController::onPhoneDisconnected);
    connect(&m_server, &PhoneServer::devicePaired, this,
            [this] { m_settings.setTrusted(m_server.trusted()); });
    connect(&m_server, &PhoneServer::streamInfo, this,
            [this](int id, int width, int height, int fps) {
                m_phones.setStream(id, QSize(width, height), fps);
            });
    connect(&m_server, &PhoneServer::videoConfig, this,
            [this](int id, const QByteArray& parameterSets) {
                if (m_phones.isActive(id)) {
                    m_pipeline.feedParameterSets(parameterSets);
                }
            });
    connect(&m_server, &PhoneServer::videoFrame, this,
            [this](int id, const QByteArray& accessUnit, qint64 ptsUsec) {
                if (m_phones.isActive(id)) {
                    m_pipeline.feed(accessUnit, ptsUsec);
                }
            });
}

void AppController::connectUsb()
{
    connect(&m_server, &PhoneServer::usbByeReceived, &m_usb, &UsbMuxClient::noteUsbBye);
    connect(&m_usb, &UsbMuxClient::tunnelReady, &m_server, &PhoneServer::addUsbSocket);
    connect(&m_usb, &UsbMuxClient::availabilityChanged, this, [this](bool available) {
        qCInfo(usbLog, "Pevrix: the USB service is %s", available ? "available" : "gone");
        Q_EMIT changed();
    });
}

QString AppController::appVersion() const
{
    return QStringLiteral(PEVRIX_VERSION);
}

QString AppController::phoneName() const
{
    const PhoneRoster::Phone* phone = m_phones.roster().find(activeId());
    return phone ? phone->name : QString();
}

bool AppController::osDark() const
{
    // An unknown scheme counts as dark.
    return QGuiApplication::styleHints()->colorScheme() != Qt::ColorScheme::Light;
}

void AppController::start()
{
    if (m_pipeline.isFeedingCards() || m_pipeline.isLive()) {
        return;
    }
    if (!m_pipeline.createCamera()) {
        qCWarning(cameraLog, "Pevrix: the virtual camera could not be created");
        setStatus(u"softcam.dll not found or camera unavailable"_s);
        return;
    }
    listen();
    m_pairing.renew(pairingPort());
    m_firewall.refresh();
    m_pipeline.showIdle();
    m_statisticsTimer.start();
    m_pairing.follow(true);
    watchFirewall();
    Q_EMIT changed();
}

void AppController::setStatus(const QString& status)
{
    m_status = status;
    Q_EMIT changed();
}

void AppController::onPipelineState()
{
    switch (m_pipeline.state()) {
    case LivePipeline::State::NotStarted:
        break;
    case LivePipeline::State::Idle:
        setStatus(u"Idle (ready to pair)"_s);
        break;
    case LivePipeline::State::Live:
        setStatus(u"Live (decoding phone stream)"_s);
        break;
    case LivePipeline::State::Stalled:
        setStatus(u"Phone paused (no video)"_s);
        break;
    case LivePipeline::State::Stopped:
        setStatus(u"Stopped"_s);
        break;
    }
}

void AppController::onStatisticsTick()
{
    m_appConnected = m_sink.isAppConnected();
    const auto decode = m_pipeline.takeDecodeTime();
    m_statistics.tick(m_statisticsClock.restart(), framesDecoded(), decode.total, decode.count);
    Q_EMIT changed();
}

// Another program, or another Pevrix, may have the usual port. Any other port is as good, because
// the pairing code tells the phone which one it is.
void AppController::listen()
{
    const bool listening = m_server.port() != 0; // since before a stop()
    if (!listening && !m_server.listen(m_options.port) && !m_server.listen(0)) {
        m_serverInfo = u"Failed to listen"_s;
        qCWarning(phoneLog, "Pevrix: no port to listen on");
        return;
    }
    m_serverInfo = u"Listening on "_s + QString::number(m_server.port());
    qCInfo(phoneLog, "Pevrix: listening on port %d", m_server.port());
}

// Where phones connect, or would if nobody else listened there.
quint16 AppController::pairingPort() const
{
    return m_server.port() != 0 ? m_server.port() : kDefaultPort;
}

// Before any phone is heard again: the server takes those only that know the new token.
void AppController::onPairingChanged()
{
    const PairingInfo& pairing = m_pairing.info();
    m_server.setToken(pairing.token);
    m_server.setPcName(pairing.pcName);
    m_pipeline.setPairAddress(pairing.addressText);
    Q_EMIT changed();
}

void AppController::stop()
{
    m_settings.flush(); // the session may end without destroying anything
    if (m_pipeline.state() == LivePipeline::State::Stopped) {
        return;
    }
    m_statisticsTimer.stop();
    m_pairing.follow(false);
    watchFirewall();
    m_pipeline.stop();
    qCInfo(controllerLog,
           "Pevrix: stopped after %lld access units received, %lld pictures decoded, "
           "%lld sent to the camera",
           static_cast<long long>(framesReceived()), static_cast<long long>(framesDecoded()),
           static_cast<long long>(framesSent()));
}

void AppController::toggleOutput()
{
    m_pipeline.toggleOutput();
    Q_EMIT changed();
}

void AppController::toggleRecording()
{
    if (m_pipeline.isRecording()) {
        m_pipeline.stopRecording();
    } else {
        static_cast<void>(m_pipeline.startRecording(newRecordingPath(recordingFolder())));
    }
    Q_EMIT changed();
}

void AppController::onRecordingEnded(const RecordingReport& report)
{
    Q_EMIT changed();
    Q_EMIT recordingEnded(outcomeName(report.outcome), report.started, report.path, report.seconds);
}

QUrl AppController::folderToChooseFrom() const
{
    QString folder = QDir::cleanPath(recordingFolder());
    while (!folder.isEmpty() && !QFileInfo(folder).isDir() && folder != QFileInfo(folder).path()) {
        folder = QFileInfo(folder).path();
    }
    return QUrl::fromLocalFile(folder);
}

void AppController::openRecordingsFolder()
{
    QDir().mkpath(recordingFolder());
    QDesktopServices::openUrl(QUrl::fromLocalFile(recordingFolder()));
}

void AppController::setActive(int id)
{
    if (m_phones.activate(id)) {
        m_pipeline.awaitPicture();
        Q_EMIT changed();
    }
}

// Phones on a cable come and go before start() and after stop(), too.
void AppController::watchFirewall()
{
    m_firewall.setWaiting(m_statisticsTimer.isActive() && !phoneConnected());
}

void AppController::onPhoneConnected(PhoneRoster::Phone phone)
{
    if (const auto note = m_phoneLines.admit()) {
        qCInfo(phoneLog, "Pevrix: phone %d connected over %s%s", phone.id,
               phone.usb ? "USB" : "Wi-Fi", note->c_str());
    }
    m_pipeline.expectStream();
    m_phones.add(std::move(phone));
    watchFirewall();
    tellSoon();
}

void AppController::onPhoneDisconnected(int id)
{
    if (const auto note = m_phoneLines.admit()) {
        qCInfo(phoneLog, "Pevrix: phone %d disconnected%s", id, note->c_str());
    }
    const bool wasActive = m_phones.isActive(id);
    m_phones.remove(id);
    if (wasActive) {
        m_pipeline.awaitPicture();
    }
    watchFirewall();
    tellSoon();
}

// Once for all that phones did in this pass of the event loop: the interface reads everything anew.
void AppController::tellSoon()
{
    if (!std::exchange(m_toldSoon, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_toldSoon = false;
                Q_EMIT changed();
            },
            Qt::QueuedConnection);
    }
}

void AppController::setThemeMode(int mode)
{
    if (!Settings::isThemeMode(mode) || mode == themeMode()) {
        return;
    }
    m_settings.setThemeMode(mode);
    Q_EMIT themeModeChanged();
}

void AppController::setRecordingFolder(const QString& folder)
{
    QString path = folder.trimmed();
    if (path.startsWith("file:"_L1)) {
        path = QUrl(path).toLocalFile();
    }
    if (path.isEmpty() || path == recordingFolder()) {
        return;
    }
    m_settings.setRecordingFolder(path);
    Q_EMIT changed();
}

void AppController::setMinimizeToTray(bool on)
{
    if (on == minimizeToTray()) {
        return;
    }
    m_settings.setMinimizeToTray(on);
    Q_EMIT changed();
}

void AppController::regeneratePairing()
{
    m_server.clearTrusted();
    m_settings.setTrusted({});
    m_pairing.renew(pairingPort());
    m_firewall.refresh();
    Q_EMIT changed();
}

void AppController::copyPairingLink()
{
    QGuiApplication::clipboard()->setText(m_pairing.info().uri);
}

QString AppController::openCameraFolder() const
{
    return QDir::toNativeSeparators(
        QString::fromStdU16String(m_options.system.openCameraFolder().u16string()));
}

void AppController::registerCamera()
{
    m_options.system.runCameraRegistration(false);
    Q_EMIT changed();
}

void AppController::unregisterCamera()
{
    m_options.system.runCameraRegistration(true);
    Q_EMIT changed();
}

void AppController::allowThroughFirewall()
{
    m_options.system.runFirewallHelper();
    m_firewall.refresh();
    Q_EMIT changed();
}

void AppController::renamePhone(int id, const QString& newName)
{
    if (m_phones.roster().rename(id, newName)) {
        m_settings.setNames(m_phones.roster().names());
        Q_EMIT changed();
    }
}

} // namespace pevrix
