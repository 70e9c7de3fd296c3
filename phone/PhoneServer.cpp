#include "phone/PhoneServer.h"

namespace pevrix {

PhoneServer::PhoneServer(const PhoneServerTimings& timings, QObject* parent)
    : QObject(parent)
    , m_timings(timings)
{
    m_clock.start();
    m_pingTimer.setInterval(timings.pingInterval);
    connect(&m_pingTimer, &QTimer::timeout, this, &PhoneServer::keepAlive);
    connect(&m_server, &QTcpServer::newConnection, this, &PhoneServer::onNewConnection);
}

PhoneServer::~PhoneServer() = default;

bool PhoneServer::listen(quint16 port)
{
    if (!m_server.listen(QHostAddress::Any, port)) {
        return false;
    }
    m_port = m_server.serverPort();
    m_pingTimer.start();
    m_lastKeepAliveMs = m_clock.elapsed();
    return true;
}

void PhoneServer::addUsbSocket(QTcpSocket* socket)
{
    if (PhoneConnection* const connection = adopt(socket, true)) {
        connection->send(MessageType::UsbHello, usbHelloPayload(m_token, m_pcName));
    }
}

void PhoneServer::setActive(int id, bool active)
{
    const auto it = m_connections.find(id);
    if (it == m_connections.end() || !it->second->handshaken()) {
        return;
    }
    PhoneConnection& phone = *it->second;
    phone.send(MessageType::Active, activePayload(active));
    if (active) {
        phone.send(MessageType::StartRequest, "{}");
    }
}

void PhoneServer::onNewConnection()
{
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        adopt(socket, false);
        limitStrangers();
    }
}

PhoneConnection* PhoneServer::adopt(QTcpSocket* socket, bool usb)
{
    if (socket->state() != QAbstractSocket::ConnectedState) {
        // Its end has been reported already and would never be heard of again.
        socket->deleteLater();
        return nullptr;
    }
    const int id = m_nextId++;
    auto* const connection =
        new PhoneConnection(id, socket, usb, m_timings.closeGrace, *this, this);
    m_connections.emplace(id, connection);
    return connection;
}

void PhoneServer::limitStrangers()
{
    int strangers = 0;
    PhoneConnection* oldest = nullptr;
    for (const auto& [id, connection] : m_connections) {
        if (connection->stranger()) {
            ++strangers;
            oldest = oldest != nullptr ? oldest : connection;
        }
    }
    if (strangers > kMaxStrangers) {
        oldest->drop();
    }
}

// What strangers have sent of messages that are not complete yet is memory that they hold together.
void PhoneServer::limitStrangersBytes()
{
    qint64 bytes = 0;
    qint64 most = 0;
    PhoneConnection* greediest = nullptr;
    for (const auto& [id, connection] : m_connections) {
        if (!connection->stranger()) {
            continue;
        }
        const qint64 held = connection->heldBytes();
        bytes += held;
        if (held > most) {
            most = held;
            greediest = connection;
        }
    }
    if (bytes > kMaxStrangersBytes) {
        greediest->drop();
    }
}

void PhoneServer::onTurnTaken(PhoneConnection& connection)
{
    if (connection.stranger()) {
        limitStrangersBytes();
    }
}

void PhoneServer::onEnded(PhoneConnection& connection)
{
    m_connections.erase(connection.id());
    if (connection.hello()) {
        Q_EMIT phoneDisconnected(connection.id());
    }
}

void PhoneServer::keepAlive()
{
    // When accepting fails (no descriptor was left, say) QTcpServer may rest until told otherwise.
    m_server.resumeAccepting();

    const qint64 now = m_clock.elapsed();
    // After this thread was held up, by a question of the system to the user say, what the phones
    // sent meanwhile is still unread.
    const bool heldUp = now - m_lastKeepAliveMs > m_timings.silenceLimit.count();
    m_lastKeepAliveMs = now;
    QList<PhoneConnection*> silent;
    for (const auto& [id, connection] : m_connections) {
        if (!connection->open() || (!connection->handshaken() && !connection->backlogged())) {
            continue;
        }
        if (!heldUp && connection->silence() > m_timings.silenceLimit) {
            silent.append(connection);
        } else if (connection->handshaken()) {
            connection->send(MessageType::Ping, pingPayload(now));
        }
    }
    for (PhoneConnection* const connection : std::as_const(silent)) {
        connection->close();
    }
}

} // namespace pevrix
