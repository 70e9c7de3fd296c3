#include "tools/phonesim/MuxDaemon.h"

#include "tools/phonesim/MuxReplies.h"
#include "usb/MuxPacket.h"

#include <QtEndian>

#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

constexpr qsizetype kTagOffset = 12;

} // namespace

MuxDaemon::MuxDaemon(const Faults& faults, QObject* parent)
    : QObject(parent)
    , m_faults(faults)
{
    connect(&m_server, &QTcpServer::newConnection, this, &MuxDaemon::accept);
}

bool MuxDaemon::appear(quint16 port)
{
    return m_server.listen(QHostAddress::LocalHost, port);
}

void MuxDaemon::vanish()
{
    m_server.close();
    const QList<QTcpSocket*> clients = m_clients.keys();
    for (QTcpSocket* client : clients) {
        client->abort(); // removes itself
    }
    for (const Device& device : std::as_const(m_devices)) {
        if (device.tunnel) {
            device.tunnel->abort();
        }
    }
}

int MuxDaemon::attach(bool overNetwork)
{
    const int id = m_nextId++;
    m_devices.insert(id, {.overNetwork = overNetwork, .open = true, .tunnel = {}});
    announce(muxAttached(id, overNetwork));
    return id;
}

void MuxDaemon::detach(int deviceId)
{
    const Device device = m_devices.take(deviceId);
    announce(muxDetached(deviceId));
    if (device.tunnel) {
        device.tunnel->abort();
    }
}

void MuxDaemon::reopen(int deviceId)
{
    if (const auto device = m_devices.find(deviceId); device != m_devices.end()) {
        device->open = true;
    }
}

void MuxDaemon::accept()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        m_clients.insert(socket, {});
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_clients.remove(socket);
            socket->deleteLater();
        });
    }
}

// Takes no byte beyond a request: what follows one that opens a tunnel is for the phone.
void MuxDaemon::read(QTcpSocket* socket)
{
    for (auto client = m_clients.find(socket); client != m_clients.end();
         client = m_clients.find(socket)) {
        QByteArray& buffer = client->buffer;
        const auto missing = missingMuxBytes(buffer);
        if (!missing) {
            socket->abort();
        } else if (*missing > 0) {
            const QByteArray bytes = socket->read(*missing);
            if (bytes.isEmpty()) {
                return;
            }
            buffer += bytes;
        } else {
            const auto tag = qFromLittleEndian<std::uint32_t>(buffer.constData() + kTagOffset);
            answer(socket, takeMessage(buffer).value_or(QVariantMap()), tag);
        }
    }
}

void MuxDaemon::answer(QTcpSocket* socket, const QVariantMap& request, std::uint32_t tag)
{
    const QString type = request.value(u"MessageType"_s).toString();
    if (type == u"Listen") {
        startAnnouncing(socket, tag);
    } else if (type == u"Connect") {
        const MuxResult result = judgeConnect(request);
        if (result == MuxResult::Success) {
            openTunnel(socket, request.value(u"DeviceID"_s).toInt(), tag);
        } else {
            socket->write(muxResult(result, tag));
        }
    } else {
        socket->write(muxResult(MuxResult::BadCommand, tag));
    }
}

void MuxDaemon::startAnnouncing(QTcpSocket* socket, std::uint32_t tag)
{
    m_clients[socket].listens = true;
    socket->write(muxResult(MuxResult::Success, tag));
    if (std::exchange(m_faults.corruptLength, false)) {
        socket->write(muxCorruptHeader());
    }
    for (const auto& [id, device] : std::as_const(m_devices).asKeyValueRange()) {
        socket->write(muxAttached(id, device.overNetwork));
    }
    Q_EMIT listenerCame();
}

MuxResult MuxDaemon::judgeConnect(const QVariantMap& request)
{
    const auto device = m_devices.constFind(request.value(u"DeviceID"_s, -1).toInt());
    if (device == m_devices.cend()) {
        return MuxResult::BadDevice;
    }
    if (m_faults.refusedConnects > 0) {
        --m_faults.refusedConnects;
        return MuxResult::ConnectionRefused;
    }
    const bool rightPort = request.value(u"PortNumber"_s).toInt() == kPhonePortInNetworkOrder;
    return rightPort && device->open ? MuxResult::Success : MuxResult::ConnectionRefused;
}

void MuxDaemon::openTunnel(QTcpSocket* socket, int deviceId, std::uint32_t tag)
{
    m_clients.remove(socket);
    socket->disconnect(this);
    socket->write(muxResult(MuxResult::Success, tag));
    Device& device = m_devices[deviceId];
    device.open = false;
    device.tunnel = socket;
    Q_EMIT tunnelOpened(deviceId, socket);
}

void MuxDaemon::announce(const QByteArray& packet)
{
    for (const auto& [socket, client] : std::as_const(m_clients).asKeyValueRange()) {
        if (client.listens) {
            socket->write(packet);
        }
    }
}

} // namespace pevrix
