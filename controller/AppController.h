#pragma once

#include "controller/LivePipeline.h"
#include "controller/Settings.h"
#include "pairing/Pairing.h"
#include "pairing/PhoneRoster.h"
#include "phone/PhoneServer.h"
#include "usb/UsbMuxClient.h"

#include <QHash>
#include <QObject>
#include <QSize>
#include <QVariantList>

namespace pevrix {

/// Where the controller finds what lies outside the program; tests choose other places.
struct ControllerOptions
{
    quint16 port = kDefaultPort; // any free one is taken where this is not to be had
    UsbMuxOptions usb;
    QString settingsFile; // empty: the user's own
    QString tokenFolder;  // empty: beside the executable
};

/// The one object that the QML interface sees: state as properties, actions as slots. Owns the
/// rooms of the program and wires them; GUI thread.
class AppController final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(bool live READ live NOTIFY changed)
    Q_PROPERTY(bool phoneConnected READ phoneConnected NOTIFY changed)
    Q_PROPERTY(QString phoneName READ phoneName NOTIFY changed)
    Q_PROPERTY(QVariantList phones READ phones NOTIFY changed)
    Q_PROPERTY(int activeId READ activeId NOTIFY changed)
    Q_PROPERTY(qint64 framesReceived READ framesReceived NOTIFY changed)
    Q_PROPERTY(qint64 framesDecoded READ framesDecoded NOTIFY changed)
    Q_PROPERTY(QString serverInfo READ serverInfo NOTIFY changed)
    Q_PROPERTY(QString qrDataUrl READ qrDataUrl NOTIFY changed)
    Q_PROPERTY(QString pairAddress READ pairAddress NOTIFY changed)
    Q_PROPERTY(QString pcName READ pcName NOTIFY changed)
    Q_PROPERTY(int port READ port NOTIFY changed)
    Q_PROPERTY(bool osDark READ osDark NOTIFY osDarkChanged)
    Q_PROPERTY(int themeMode READ themeMode WRITE setThemeMode NOTIFY themeModeChanged)
    Q_PROPERTY(QString recordingFolder READ recordingFolder WRITE setRecordingFolder NOTIFY changed)
    Q_PROPERTY(bool minimizeToTray READ minimizeToTray WRITE setMinimizeToTray NOTIFY changed)
    Q_PROPERTY(bool usbAvailable READ usbAvailable NOTIFY changed)

public:
    explicit AppController(const ControllerOptions& options = {}, QObject* parent = nullptr);
    ~AppController() override;

    [[nodiscard]] QString status() const { return m_status; }
    [[nodiscard]] bool live() const { return m_pipeline.isLive(); }
    [[nodiscard]] bool phoneConnected() const { return !m_roster.isEmpty(); }
    [[nodiscard]] QString phoneName() const;
    [[nodiscard]] QVariantList phones() const { return m_roster.toVariantList(); }
    [[nodiscard]] int activeId() const { return m_roster.activeId(); }
    [[nodiscard]] qint64 framesReceived() const { return m_server.framesReceived(); }
    [[nodiscard]] qint64 framesDecoded() const { return m_pipeline.framesDecoded(); }
    [[nodiscard]] QString serverInfo() const { return m_serverInfo; }
    [[nodiscard]] QString qrDataUrl() const { return m_pairing.qrDataUrl; }
    [[nodiscard]] QString pairAddress() const { return m_pairing.addressText; }
    [[nodiscard]] QString pcName() const { return m_pairing.pcName; }
    [[nodiscard]] int port() const { return m_server.port(); }
    [[nodiscard]] bool osDark() const;
    [[nodiscard]] int themeMode() const { return m_themeMode; }
    [[nodiscard]] QString recordingFolder() const { return m_recordingFolder; }
    [[nodiscard]] bool minimizeToTray() const { return m_minimizeToTray; }
    [[nodiscard]] bool usbAvailable() const { return m_usb.available(); }

    /// Takes a path or a "file:" URL. An empty one is ignored.
    void setRecordingFolder(const QString& folder);

    void setMinimizeToTray(bool on);

public Q_SLOTS:
    /// Listens for phones and makes the pairing code. Does nothing when already started.
    void start();

    /// Ends the video. Also runs at destruction.
    void stop();

    /// Makes a connected phone the source of the video.
    void setActive(int id);

    /// 0 follows the platform, 1 light, 2 dark; other values are ignored.
    void setThemeMode(int mode);

    /// Forgets every trusted phone and makes a new pairing code. Phones that are connected stay.
    void regeneratePairing();

    /// Gives a connected phone's device a name that lasts; an empty one takes it back.
    void renamePhone(int id, const QString& newName);

Q_SIGNALS:
    void changed();
    void frameReady(const QImage& image);
    void osDarkChanged();
    void themeModeChanged();

private:
    void connectServer();
    void connectUsb();
    void listen();
    void refreshPairingInfo();
    void onPhoneConnected(PhoneRoster::Phone phone);
    void onPhoneDisconnected(int id);
    void onStreamInfo(int id, int width, int height);
    void activate(int id);
    void startStream(QSize size);

    const ControllerOptions m_options;
    PhoneServer m_server;
    UsbMuxClient m_usb;
    LivePipeline m_pipeline;
    PhoneRoster m_roster;
    Settings m_settings;
    PairingInfo m_pairing;
    QHash<int, QSize> m_streamSizes; // what each connected phone last announced
    QString m_status;
    QString m_serverInfo;
    int m_themeMode;
    QString m_recordingFolder;
    bool m_minimizeToTray;
    bool m_started = false;
};

} // namespace pevrix
