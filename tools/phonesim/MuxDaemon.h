#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QVariantMap>

#include <cstdint>

namespace pevrix {

enum class MuxResult;

/// A simulated usbmux daemon on 127.0.0.1: tells the PCs that listen to it which phones are
/// attached and joins connections to them. Such a connection then is the phone's own end of the
/// tunnel. Phones stay attached while the daemon is away. Lives on one thread with an event loop.
class MuxDaemon final : public QObject
{
    Q_OBJECT

public:
    struct Faults
    {
        int refusedConnects = 0;    ///< so many requests for a tunnel are refused first
        bool corruptLength = false; ///< the first PC that listens gets a corrupt header
    };

    explicit MuxDaemon(const Faults& faults, QObject* parent = nullptr);

    /// Listens on `port`, 0 for any free one. False, and errorString() says why, when that fails.
    [[nodiscard]] bool appear(quint16 port);
    [[nodiscard]] QString errorString() const { return m_server.errorString(); }
    [[nodiscard]] quint16 port() const { return m_server.serverPort(); }
    [[nodiscard]] bool isThere() const { return m_server.isListening(); }

    /// Closes everything, the tunnels included.
    void vanish();

    /// Returns the id under which the daemon knows the phone until it is detached. The app on the
    /// phone takes one connection, and another one after each reopen().
    int attach(bool overNetwork);

    /// Closes the phone's tunnel, too.
    void detach(int deviceId);

    void reopen(int deviceId);

Q_SIGNALS:
    /// A PC is told of phones from now on.
    void listenerCame();

    /// The receiver takes the socket over by giving it a parent. The daemon closes it when the
    /// phone is detached.
    void tunnelOpened(int deviceId, QTcpSocket* socket);

private:
    struct Device
    {
        bool overNetwork = false;
        bool open = true;
        QPointer<QTcpSocket> tunnel;
    };

    // A connection that is not a tunnel.
    struct Client
    {
        QByteArray buffer; // of a request that is not complete
        bool listens = false;
    };

    void accept();
    void read(QTcpSocket* socket);
    void answer(QTcpSocket* socket, const QVariantMap& request, std::uint32_t tag);
    void startAnnouncing(QTcpSocket* socket, std::uint32_t tag);
    [[nodiscard]] MuxResult judgeConnect(const QVariantMap& request);
    void openTunnel(QTcpSocket* socket, int deviceId, std::uint32_t tag);
    void announce(const QByteArray& packet);

    Faults m_faults;
    QHash<QTcpSocket*, Client> m_clients;
    QMap<int, Device> m_devices; // by id, and so announced in the order in which they came
    int m_nextId = 1;
    QTcpServer m_server; // last: clients that close with it still find the rest
};

} // namespace pevrix
