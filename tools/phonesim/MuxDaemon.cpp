#include "tools/phonesim/MuxDaemon.h"

#include "usb/MuxPacket.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

MuxDaemon::MuxDaemon(QObject* parent)
    : QObject(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &MuxDaemon::accept);
}

bool MuxDaemon::appear(quint16 port)
{
    const bool there = m_server.listen(QHostAddress::LocalHost, port != 0 ? port : m_port);
    m_port = there ? m_server.serverPort() : m_port;
    return there;
}

void MuxDaemon::vanish()
{
    m_server.close();
    listeners.clear();
    for (auto* socket : m_server.findChildren<QTcpSocket*>()) {
        socket->abort(); // accept() made it clean up after itself
    }
    for (const auto& tunnel : std::exchange(tunnels, {})) {
        if (tunnel) {
            tunnel->abort();
        }
    }
}

void MuxDaemon::attach(int device, const QByteArray& connection)
{
    m_attached[device] = attached(QByteArray::number(device), connection);
    announce(m_attached[device]);
}

void MuxDaemon::detach(int device)
{
    m_attached.remove(device);
    announce(detached(device));
    if (const QPointer<QTcpSocket> tunnel = tunnels.take(device)) {
        tunnel->abort();
    }
}

void MuxDaemon::announce(const QByteArray& bytes)
{
    for (auto* socket : std::as_const(listeners)) {
        socket->write(bytes);
    }
}

QByteArray MuxDaemon::packet(const QByteArray& entries)
{
    const QByteArray payload = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<plist version=\"1.0\">\n<dict>\n\t" +
                               entries + "\n</dict>\n</plist>\n";
    return buildMuxHeader(payload.size(), 0) + payload;
}

QByteArray MuxDaemon::result(int number)
{
    return packet("<key>MessageType</key>\n\t<string>Result</string>\n\t<key>Number</key>\n\t"
                  "<integer>" +
                  QByteArray::number(number) + "</integer>");
}

QByteArray MuxDaemon::attached(const QByteArray& device, const QByteArray& connection)
{
    return packet("<key>MessageType</key>\n\t<string>Attached</string>\n\t<key>DeviceID</key>"
                  "\n\t<integer>" +
                  device +
                  "</integer>\n\t<key>Properties</key>\n\t<dict>\n\t\t"
                  "<key>ConnectionType</key>\n\t\t<string>" +
                  connection + "</string>\n\t</dict>");
}

QByteArray MuxDaemon::detached(int device)
{
    return packet("<key>MessageType</key><string>Detached</string><key>DeviceID</key><integer>" +
                  QByteArray::number(device) + "</integer>");
}

void MuxDaemon::accept()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            listeners.removeAll(socket);
            if (socket->parent() == &m_server) {
                socket->deleteLater();
            }
        });
    }
}

// Takes no byte beyond a request: what follows one that opens a tunnel is for the phone.
void MuxDaemon::read(QTcpSocket* socket)
{
    QByteArray bytes = socket->peek(socket->bytesAvailable());
    const qsizetype available = bytes.size();
    const auto message = takeMessage(bytes);
    if (!message) {
        return;
    }
    received += socket->read(available - bytes.size());
    if (message->value(u"MessageType"_s) == u"Listen"_s) {
        listeners += socket;
        socket->write(listenAnswer);
        for (const QByteArray& announcement : std::as_const(m_attached)) {
            socket->write(announcement);
        }
        return;
    }
    disconnect(socket, &QTcpSocket::readyRead, this, nullptr);
    const int device = message->value(u"DeviceID"_s).toInt();
    ++requests[device];
    tunnels[device] = socket;
    const QByteArray reply = answer(device);
    socket->write(reply);
    if (reply == result(kSuccess)) {
        Q_EMIT tunnelOpened(device, socket);
    }
}

} // namespace pevrix
