#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>

namespace pevrix {

// A simulated usbmux daemon on 127.0.0.1: tells the PCs that listen to it which phones are
// attached and joins connections to them, or does whatever else a test wants of it. Phones stay
// attached while it is away. Lives on one thread with an event loop.
class MuxDaemon final : public QObject
{
    Q_OBJECT

public:
    explicit MuxDaemon(QObject* parent = nullptr);

    // Listens, 0: on any free port, and on the same one every time it comes back. False, and
    // errorString() says why, when that fails.
    [[nodiscard]] bool appear(quint16 port = 0);
    [[nodiscard]] QString errorString() const { return m_server.errorString(); }
    [[nodiscard]] quint16 port() const { return m_port; }

    // Closes everything, the tunnels included.
    void vanish();

    // A phone is there until it is detached. `connection` is how the daemon found it.
    void attach(int device, const QByteArray& connection = "USB");
    // Closes the phone's tunnel, too.
    void detach(int device);

    // Says this to everyone who listens.
    void announce(const QByteArray& bytes);

    // Packets as a daemon writes them: indented, tagged 0.
    [[nodiscard]] static QByteArray packet(const QByteArray& entries);
    [[nodiscard]] static QByteArray result(int number);
    [[nodiscard]] static QByteArray attached(const QByteArray& device,
                                             const QByteArray& connection = "USB");
    [[nodiscard]] static QByteArray detached(int device);

    // Numbers of results.
    static constexpr int kSuccess = 0;
    static constexpr int kRefused = 3;

    // What a request for a tunnel is answered with; nothing leaves it unanswered.
    std::function<QByteArray(int device)> answer = [](int) {
        return result(kSuccess);
    };
    QByteArray listenAnswer = result(kSuccess);

    // Connections that are open, but for tunnels that somebody took over.
    [[nodiscard]] qsizetype connections() const
    {
        return m_server.findChildren<QTcpSocket*>().size();
    }
    QList<QTcpSocket*> listeners;
    QHash<int, QPointer<QTcpSocket>> tunnels; // that were asked for last, by device
    QHash<int, int> requests;                 // for a tunnel, by device
    QList<QByteArray> received;               // whole packets

Q_SIGNALS:
    // The phone's own end of a tunnel. Whoever takes the socket over gives it a parent; its first
    // bytes may be there already.
    void tunnelOpened(int device, QTcpSocket* socket);

private:
    void accept();
    void read(QTcpSocket* socket);

    QMap<int, QByteArray> m_attached; // how each phone was announced
    quint16 m_port = 0;
    QTcpServer m_server; // last: connections that close with it still find the rest
};

} // namespace pevrix
