#pragma once

#include "camera/SoftcamSink.h"
#include "controller/FirewallWatch.h"
#include "controller/LivePhones.h"
#include "controller/LivePipeline.h"
#include "controller/LiveStatistics.h"
#include "controller/PairingCode.h"
#include "controller/Settings.h"
#include "controller/SystemFunctions.h"
#include "phone/LogLimiter.h"
#include "phone/PhoneServer.h"
#include "usb/UsbMuxClient.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSysInfo>
#include <QTimer>
#include <QUrl>
#include <QVariantList>

#include <chrono>
#include <filesystem>

namespace pevrix {

// Where the controller finds what lies outside the program; tests choose other places.
struct ControllerOptions
{
    quint16 port = kDefaultPort; // any free port if this one is taken
    UsbMuxOptions usb;
    QString settingsFile; // empty: the user's own
    QString tokenFolder;  // empty: beside the executable
    std::filesystem::path cameraLibrary = cameraLibraryName();
    SystemFunctions system;
    std::chrono::milliseconds statisticsInterval{500};
    std::chrono::milliseconds firewallInterval{10'000};
    EndpointFinder findEndpoints = findLanEndpoints;
    std::chrono::milliseconds addressInterval{4'000}; // how often it is asked
};

// The one object that the QML interface sees: state as properties, actions as slots. Owns the
// rooms of the program and wires them; GUI thread. Some properties no view shows (status,
// cameraReady, the frame counts, serverInfo, lastRecordingPath): they tell tests and scripts how
// the program fares.
class AppController final : public QObject, private IVideoSwitch
{
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(bool cameraReady READ cameraReady NOTIFY changed)
    Q_PROPERTY(bool appConnected READ appConnected NOTIFY changed)
    Q_PROPERTY(bool live READ live NOTIFY changed)
    Q_PROPERTY(bool outputEnabled READ outputEnabled NOTIFY changed)
    Q_PROPERTY(qint64 framesSent READ framesSent NOTIFY changed)
    Q_PROPERTY(bool phoneConnected READ phoneConnected NOTIFY changed)
    Q_PROPERTY(QString phoneName READ phoneName NOTIFY changed)
    Q_PROPERTY(QVariantList phones READ phones NOTIFY changed)
    Q_PROPERTY(int activeId READ activeId NOTIFY changed)
    Q_PROPERTY(qint64 framesReceived READ framesReceived NOTIFY changed)
    Q_PROPERTY(qint64 framesDecoded READ framesDecoded NOTIFY changed)
    Q_PROPERTY(int fps READ fps NOTIFY changed)
    Q_PROPERTY(int decodeMs READ decodeMs NOTIFY changed)
    Q_PROPERTY(QString serverInfo READ serverInfo NOTIFY changed)
    Q_PROPERTY(QString qrDataUrl READ qrDataUrl NOTIFY changed)
    Q_PROPERTY(QString pairAddress READ pairAddress NOTIFY changed)
    Q_PROPERTY(QString pcName READ pcName NOTIFY changed)
    Q_PROPERTY(int port READ port NOTIFY changed)
    Q_PROPERTY(bool osDark READ osDark NOTIFY osDarkChanged)
    Q_PROPERTY(int themeMode READ themeMode WRITE setThemeMode NOTIFY themeModeChanged)
    Q_PROPERTY(QString appVersion READ appVersion CONSTANT)
    Q_PROPERTY(bool cameraRegistered READ cameraRegistered NOTIFY changed)
    Q_PROPERTY(bool recording READ recording NOTIFY changed)
    Q_PROPERTY(QString lastRecordingPath READ lastRecordingPath NOTIFY changed)
    Q_PROPERTY(QString recordingFolder READ recordingFolder WRITE setRecordingFolder NOTIFY changed)
    Q_PROPERTY(QUrl folderToChooseFrom READ folderToChooseFrom NOTIFY changed)
    Q_PROPERTY(bool minimizeToTray READ minimizeToTray WRITE setMinimizeToTray NOTIFY changed)
    Q_PROPERTY(bool usbAvailable READ usbAvailable NOTIFY changed)
    Q_PROPERTY(bool firewallBlocked READ firewallBlocked NOTIFY changed)
    Q_PROPERTY(bool videoWaiting READ videoWaiting NOTIFY changed)
    Q_PROPERTY(bool videoStalled READ videoStalled NOTIFY changed)
    Q_PROPERTY(bool trustsPhones READ trustsPhones NOTIFY changed)
    Q_PROPERTY(bool cameraNeedsRegistration READ cameraNeedsRegistration CONSTANT)
    Q_PROPERTY(QString openCameraFolder READ openCameraFolder NOTIFY changed)
    Q_PROPERTY(QString platform READ platform CONSTANT)

public:
    explicit AppController(const ControllerOptions& options = {}, QObject* parent = nullptr);
    ~AppController() override;

    [[nodiscard]] QString status() const { return m_status; }
    [[nodiscard]] bool cameraReady() const { return m_sink.isActive(); }
    // As of the last statistics tick.
    [[nodiscard]] bool appConnected() const { return m_appConnected; }
    [[nodiscard]] bool live() const { return m_pipeline.isLive(); }
    [[nodiscard]] bool outputEnabled() const { return m_pipeline.outputEnabled(); }
    [[nodiscard]] qint64 framesSent() const { return m_pipeline.framesSent(); }
    [[nodiscard]] bool phoneConnected() const { return !m_phones.roster().isEmpty(); }
    [[nodiscard]] QString phoneName() const;
    [[nodiscard]] QVariantList phones() const { return m_phones.roster().toVariantList(); }
    [[nodiscard]] int activeId() const { return m_phones.roster().activeId(); }
    [[nodiscard]] qint64 framesReceived() const { return m_server.framesReceived(); }
    [[nodiscard]] qint64 framesDecoded() const { return m_pipeline.framesDecoded(); }
    [[nodiscard]] int fps() const { return m_statistics.fps(); }
    [[nodiscard]] int decodeMs() const { return m_statistics.decodeMs(); }
    [[nodiscard]] QString serverInfo() const { return m_serverInfo; }
    [[nodiscard]] QString qrDataUrl() const { return m_pairing.info().qrDataUrl; }
    [[nodiscard]] QString pairAddress() const { return m_pairing.info().addressText; }
    [[nodiscard]] QString pcName() const { return m_pairing.info().pcName; }
    [[nodiscard]] int port() const { return m_server.port(); }
    [[nodiscard]] bool osDark() const;
    [[nodiscard]] int themeMode() const { return m_settings.themeMode(); }
    [[nodiscard]] QString appVersion() const;
    // The system is asked at each read.
    [[nodiscard]] bool cameraRegistered() const { return m_options.system.isCameraRegistered(); }
    [[nodiscard]] bool recording() const { return m_pipeline.isRecording(); }
    // Full path of the last recording that was started.
    [[nodiscard]] QString lastRecordingPath() const { return m_pipeline.lastRecordingPath(); }
    [[nodiscard]] QString recordingFolder() const { return m_settings.recordingFolder(); }
    // The recordings folder or, while there is none, the nearest one above it. The disk is asked at
    // each read.
    [[nodiscard]] QUrl folderToChooseFrom() const;
    [[nodiscard]] bool minimizeToTray() const { return m_settings.minimizeToTray(); }
    [[nodiscard]] bool usbAvailable() const { return m_usb.available(); }
    // Whether the firewall keeps phones out, by its last answer.
    [[nodiscard]] bool firewallBlocked() const { return m_firewall.isBlocking(); }
    // The active phone is connected and its first picture has not come.
    [[nodiscard]] bool videoWaiting() const
    {
        return phoneConnected() && (!live() || m_pipeline.awaitsPicture());
    }
    // The active phone has stopped sending pictures.
    [[nodiscard]] bool videoStalled() const
    {
        return m_pipeline.state() == LivePipeline::State::Stalled && !videoWaiting();
    }
    // A new pairing code would forget phones.
    [[nodiscard]] bool trustsPhones() const { return !m_server.trusted().isEmpty(); }
    [[nodiscard]] bool cameraNeedsRegistration() const
    {
        return m_options.system.cameraNeedsRegistration;
    }
    // The folder whose library registerCamera() would register, when others than the user and
    // administrators can change it; else empty. The system is asked at each read.
    [[nodiscard]] QString openCameraFolder() const;
    // "linux" or "winnt".
    [[nodiscard]] QString platform() const { return QSysInfo::kernelType(); }

    // Takes a path or a "file:" URL. An empty one is ignored.
    void setRecordingFolder(const QString& folder);

    void setMinimizeToTray(bool on);

    // What lasts of the window and the tray lies there, too.
    [[nodiscard]] Settings& settings() { return m_settings; }

    // From the next pairing code on the window shows demonstration values in place of this PC's
    // name, address and token, so that a picture of it can be published.
    void setCaptureMode(bool on) { m_pairing.setCaptureMode(on); }

public Q_SLOTS:
    // Creates the camera, listens for phones, makes the pairing code and shows the idle card.
    // Does nothing while the camera is being fed already.
    void start();

    // Ends recording, video and camera. Also runs at destruction.
    void stop();

    // Makes a connected phone the source of the video.
    void setActive(int id);

    // Pauses or resumes what goes to the camera.
    void toggleOutput();

    // 0 follows the platform, 1 light, 2 dark; other values are ignored.
    void setThemeMode(int mode);

    // Forgets every trusted phone and makes a new pairing code. Phones that are connected stay.
    void regeneratePairing();

    // Puts what the pairing code says into the clipboard.
    void copyPairingLink();

    // The system asks the user for administrator rights, and these three wait for the outcome: the
    // window does not react until then, at most for half a minute once the rights are granted. When
    // the user refuses, nothing changes.
    void registerCamera();
    void unregisterCamera();
    void allowThroughFirewall();

    // Gives a connected phone's device a name that lasts; an empty one takes it back.
    void renamePhone(int id, const QString& newName);

    // Ends the recording, or begins one when video is live and the output is not paused.
    void toggleRecording();

    // Opens the recording folder in the platform's file browser, making it when it is missing.
    void openRecordingsFolder();

Q_SIGNALS:
    void changed();
    void frameReady(const QImage& image);
    void osDarkChanged();
    void themeModeChanged();
    // How a recording went. `outcome` is "saved"; "resized", which is the same by pictures of
    // another size; "empty", when no picture came and there is no file; or why it ended by itself
    // or (not `started`) could not begin: "diskFull", "folderGone", "writeFailed". `path` is its
    // file's.
    void recordingEnded(const QString& outcome, bool started, const QString& path, int seconds);

private:
    void connectServer();
    void connectUsb();
    void listen();
    void onPhoneConnected(PhoneRoster::Phone phone);
    void onPhoneDisconnected(int id);
    void setStatus(const QString& status);
    void onPipelineState();
    void onStatisticsTick();
    void onRecordingEnded(const RecordingReport& report);
    void onPairingChanged();
    [[nodiscard]] quint16 pairingPort() const;
    void watchFirewall();
    void tellSoon();

    // IVideoSwitch
    void askForVideo(int id, bool on) override { m_server.setActive(id, on); }
    void startStream(QSize size, bool direct) override { m_pipeline.startStream(size, direct); }
    void setFrameRate(int fps) override { m_pipeline.setFrameRate(fps); }
    void goIdle() override { m_pipeline.goIdle(); }

    const ControllerOptions m_options;
    SoftcamSink m_sink;
    PhoneServer m_server;
    UsbMuxClient m_usb;
    LivePipeline m_pipeline;
    LivePhones m_phones{*this};
    FirewallWatch m_firewall;
    Settings m_settings;
    PairingCode m_pairing;
    LogLimiter m_phoneLines; // a phone may come and go as often as it likes
    QString m_status;
    QString m_serverInfo;
    QTimer m_statisticsTimer;
    QElapsedTimer m_statisticsClock;
    LiveStatistics m_statistics;
    bool m_appConnected = false;
    bool m_toldSoon = false; // changed() is on its way
};

} // namespace pevrix
