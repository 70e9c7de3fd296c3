#pragma once

#include <QByteArray>
#include <QHash>
#include <QHostAddress>
#include <QObject>
#include <QSet>
#include <QTcpSocket>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

namespace pevrix {

struct TunnelAttempt;

// Where the usbmux daemon is and how patient the client is with it.
struct UsbMuxOptions
{
    // The platform's mobile-device service listens here, for this machine only.
    QHostAddress address = QHostAddress(QHostAddress::LocalHost);
    std::uint16_t port = 27015;
    // Pause before the daemon is tried again. It may not be installed at all: trying must be cheap.
    std::chrono::milliseconds reconnectInterval{5000};
    // How often attached phones without a tunnel get one. The app on the phone may start late.
    std::chrono::milliseconds tunnelInterval{2000};
};

// Finds phones on USB through the usbmux daemon and opens a connection to the app on each of them.
// Lives on one thread with an event loop, and owns its sockets until it hands them over. Reports
// nothing but `available`: an absent daemon is an ordinary state, and everything that fails is
// tried again by a timer.
class UsbMuxClient final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool available READ available NOTIFY availabilityChanged)

public:
    explicit UsbMuxClient(QObject* parent = nullptr);
    explicit UsbMuxClient(const UsbMuxOptions& options, QObject* parent = nullptr);
    ~UsbMuxClient() override;

    // Whether the daemon is connected and announces phones to us.
    [[nodiscard]] bool available() const { return m_state == State::Available; }

    // Begins to look for the daemon, for as long as this object lives. Further calls do nothing.
    void start();

    // Connects to the daemon unless that connection exists or is being made.
    void connectToDaemon();

    // The phone behind this tunnel said goodbye: it gets no other tunnel until it is unplugged.
    // Sockets that are not a tunnel of ours are ignored.
    void noteUsbBye(QTcpSocket* socket);

Q_SIGNALS:
    void availabilityChanged(bool available);

    // `socket` is connected to kPhonePort of a phone. Nothing of the client listens to its traffic
    // any more; it is still a child of the client, and the receiver takes it over with setParent().
    // The phone's first bytes may be waiting in it already, without another readyRead() to come
    // for them. The receiver must not delete it within the signal; deleteLater() is fine. Once it
    // is destroyed, a phone that is still attached and said no goodbye gets the next tunnel.
    void tunnelReady(QTcpSocket* socket);

private:
    // Idle -> Connecting -> Listening -> Available, and from each of the last three -> Waiting on a
    // socket error; Waiting -> Connecting when the reconnect timer fires.
    enum class State
    {
        Idle,       // not started
        Connecting, // to the daemon
        Listening,  // asked for announcements, no answer yet
        Available,  // the daemon agreed; the tunnel timer runs
        Waiting,    // for the reconnect timer
    };

    // A phone that is announced as attached over USB.
    struct Device
    {
        bool tunnelled = false; // a tunnel that we handed over is alive
    };

    void listen();
    void readAnnouncements();
    void handleMessage(const QVariantMap& message);
    void handleListenResult(const QVariantMap& message);
    void handleAttached(const QVariantMap& message);
    void handleDetached(const QVariantMap& message);
    void loseDaemon();

    void openMissingTunnels();
    void openTunnel(int deviceId);
    void readReply(TunnelAttempt& attempt);
    void handOver(TunnelAttempt& attempt);
    void forgetTunnel(const QObject* socket);
    [[nodiscard]] bool hasAttempt(int deviceId) const;
    void dropAttempt(int deviceId);
    void drop(TunnelAttempt& attempt);
    [[nodiscard]] std::unique_ptr<TunnelAttempt> take(const TunnelAttempt& attempt);

    void connectSocket(QTcpSocket& socket);
    void sendMessage(QTcpSocket& socket, const QVariantMap& message);

    const UsbMuxOptions m_options;
    State m_state = State::Idle;
    QTcpSocket m_listenSocket;
    QByteArray m_received; // of the listen socket, not a whole packet yet
    QTimer m_reconnectTimer;
    QTimer m_tunnelTimer;
    QHash<int, Device> m_devices; // by the daemon's device id
    QHash<const QObject*, int> m_tunnels;
    QSet<int> m_byes;
    std::vector<std::unique_ptr<TunnelAttempt>> m_attempts;
    std::uint32_t m_nextTag = 1;
};

} // namespace pevrix
