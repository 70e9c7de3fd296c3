#include "phone/PhoneServer.h"

#include "phone/Log.h"

#include <QDeadlineTimer>
#include <QNetworkProxy>

#include <algorithm>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

// How long strangers may keep the event loop busy, all together, and how long it is the others'
// before the strangers' next turn.
constexpr auto kStrangersTurn = 2ms;
constexpr auto kStrangersRest = 2ms;

// How many the system keeps while the thread is busy; it drops those who connect beyond them, and a
// phone among those tries again after a second. Qt's own 50 do not outlast a crowd.
constexpr int kBacklog = 512;

// Whoever floods the queue waits for the phones' turn.
constexpr int kAcceptedInATurn = 64;

} // namespace

PhoneServer::PhoneServer(const PhoneServerTimings& timings, QObject* parent)
    : QObject(parent)
    , m_timings(timings)
{
    m_clock.start();
    m_pingTimer.setInterval(timings.pingInterval);
    connect(&m_pingTimer, &QTimer::timeout, this, &PhoneServer::keepAlive);
    m_strangersTimer.setSingleShot(true);
    m_strangersTimer.setTimerType(Qt::PreciseTimer);
    m_strangersTimer.setInterval(kStrangersRest);
    connect(&m_strangersTimer, &QTimer::timeout, this, &PhoneServer::serveStrangers);
    // The proxy of the system's settings is for what goes out; a server would look for phones
    // there.
    m_server.setProxy(QNetworkProxy::NoProxy);
    // Queued, for otherwise it would go on accepting as long as somebody connects.
    connect(&m_server, &QTcpServer::newConnection, this, &PhoneServer::onNewConnection,
            Qt::QueuedConnection);
    // See onNewConnection().
    m_server.setMaxPendingConnections(1);
    m_server.setListenBacklogSize(kBacklog);
    connect(&m_server, &QTcpServer::acceptError, this, &PhoneServer::onAcceptError);
}

PhoneServer::~PhoneServer() = default;

bool PhoneServer::listen(quint16 port)
{
    if (!m_server.listen(QHostAddress::Any, port)) {
        qCWarning(phoneLog, "Pevrix: cannot listen on port %d: %s", port,
                  qUtf8Printable(m_server.errorString()));
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

// Left alone, QTcpServer accepts until nobody waits any more, keeps that as its error for good, and
// takes a later lack of descriptors for the same: then it neither tells of it nor rests, but tries
// again without end. So it takes one at a time, and is asked for the next one only if there is one.
void PhoneServer::onNewConnection()
{
    for (int i = 0; i < kAcceptedInATurn; ++i) {
        if (!m_server.hasPendingConnections() && !m_server.waitForNewConnection(0)) {
            return;
        }
        QTcpSocket* const socket = m_server.nextPendingConnection();
        if (socket == nullptr) {
            return; // accepting it failed
        }
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
    QHash<QHostAddress, int> addresses;
    int strangers = 0;
    int most = 0;
    for (const auto& [id, connection] : m_connections) {
        if (connection->stranger()) {
            ++strangers;
            most = std::max(most, ++addresses[connection->socket()->peerAddress()]);
        }
    }
    if (strangers <= kMaxStrangers) {
        return;
    }
    const auto oldest = std::ranges::find_if(m_connections, [&](const auto& entry) {
        const PhoneConnection& connection = *entry.second;
        return connection.stranger() && addresses[connection.socket()->peerAddress()] == most;
    });
    oldest->second->drop();
}

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

void PhoneServer::onTurnWanted(PhoneConnection& stranger)
{
    m_strangerTurns.push_back(stranger.id());
    if (!m_strangersTimer.isActive()) {
        m_strangersTimer.start();
    }
}

void PhoneServer::serveStrangers()
{
    const QDeadlineTimer end(kStrangersTurn, Qt::PreciseTimer);
    while (!m_strangerTurns.empty() && !end.hasExpired()) {
        const auto it = m_connections.find(m_strangerTurns.front());
        m_strangerTurns.pop_front();
        if (it != m_connections.end()) {
            it->second->takeTurn();
            limitStrangersBytes();
        }
    }
    if (!m_strangerTurns.empty()) {
        m_strangersTimer.start();
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

void PhoneServer::onAcceptError()
{
    if (const auto note = m_acceptErrors.admit()) {
        qCWarning(phoneLog, "Pevrix: cannot accept a connection: %s%s",
                  qUtf8Printable(m_server.errorString()), note->c_str());
    }
}

} // namespace pevrix
