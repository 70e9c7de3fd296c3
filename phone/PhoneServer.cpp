#include "phone/PhoneServer.h"

#include <utility>

namespace pevrix {

namespace {

// What a socket may hold of a peer's bytes before we read them; TCP slows the peer down beyond
// it. Below 1 MiB the throughput suffers from the many small turns.
constexpr qint64 kReadBufferSize = qint64{1024} * 1024;

// How long one connection may keep the event loop busy before the others get their turn.
constexpr qint64 kTurnMs = 8;

// A peer that leaves more than this unread is owed no further answers: its messages wait until
// it has taken what was sent.
constexpr qint64 kMaxBacklog = qint64{1024} * 1024;

} // namespace

PhoneServer::PhoneServer(const PhoneServerTimings& timings, QObject* parent)
    : QObject(parent)
    , m_timings(timings)
{
    m_clock.start();
    m_pingTimer.setInterval(timings.pingInterval);
    connect(&m_pingTimer, &QTimer::timeout, this, &PhoneServer::keepAlive);
    connect(&m_server, &QTcpServer::newConnection, this, &PhoneServer::onNewConnection);
}

PhoneServer::~PhoneServer()
{
    // A socket reports its end while it is deleted; nobody is left to hear it then.
    const auto sessions = std::exchange(m_sessions, {});
    for (auto it = sessions.keyBegin(); it != sessions.keyEnd(); ++it) {
        disconnect(*it, nullptr, this, nullptr);
        delete *it;
    }
}

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
    socket->setParent(this);
    adopt(socket, true);
    send(socket, MessageType::UsbHello, usbHelloPayload(m_token, m_pcName));
}

void PhoneServer::setActive(int id, bool active)
{
    QTcpSocket* const socket = findPhone(id);
    if (socket == nullptr) {
        return;
    }
    send(socket, MessageType::Active, activePayload(active));
    if (active) {
        send(socket, MessageType::StartRequest, "{}");
    }
}

void PhoneServer::onNewConnection()
{
    while (QTcpSocket* const socket = m_server.nextPendingConnection()) {
        adopt(socket, false);
        dropOldestStranger();
    }
}

void PhoneServer::adopt(QTcpSocket* socket, bool usb)
{
    if (socket->state() != QAbstractSocket::ConnectedState) {
        // Its end has been reported already and would never be heard of again.
        socket->deleteLater();
        return;
    }
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket->setReadBufferSize(kReadBufferSize);

    PhoneSession session;
    session.id = m_nextId++;
    session.usb = usb;
    session.lastRxMs = m_clock.elapsed();
    const auto it = m_sessions.emplace(socket, std::move(session));

    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { readTurn(socket); });
    connect(socket, &QTcpSocket::bytesWritten, this, [this, socket] { onBytesWritten(socket); });
    connect(socket, &QTcpSocket::disconnected, this, [this, socket] { onDisconnected(socket); });
    if (socket->bytesAvailable() > 0) {
        // readyRead comes with fresh bytes only, and these have been announced before.
        queueTurn(socket, *it);
    }
}

void PhoneServer::dropOldestStranger()
{
    int strangers = 0;
    QTcpSocket* oldest = nullptr;
    int oldestId = m_nextId;
    for (const auto& [socket, session] : std::as_const(m_sessions).asKeyValueRange()) {
        if (!session.stranger()) {
            continue;
        }
        ++strangers;
        if (session.id < oldestId) {
            oldestId = session.id;
            oldest = socket;
        }
    }
    if (strangers > kMaxStrangers) {
        drop(oldest);
    }
}

// What strangers have sent of messages that are not complete yet is memory that they hold together.
void PhoneServer::limitStrangersBytes()
{
    qint64 bytes = 0;
    QTcpSocket* greediest = nullptr;
    qint64 most = 0;
    for (const auto& [socket, session] : std::as_const(m_sessions).asKeyValueRange()) {
        if (!session.stranger()) {
            continue;
        }
        const qint64 held = session.splitter.heldBytes();
        bytes += held;
        if (held > most) {
            most = held;
            greediest = socket;
        }
    }
    if (bytes > kMaxStrangersBytes) {
        drop(greediest);
    }
}

void PhoneServer::drop(QTcpSocket* socket)
{
    m_sessions[socket].closing = true;
    socket->abort();
}

void PhoneServer::onDisconnected(QTcpSocket* socket)
{
    socket->deleteLater();
    const auto it = m_sessions.find(socket);
    if (it == m_sessions.end()) {
        return;
    }
    if (!it->closing && !it->reading) {
        // The peer ended the connection: what it sent before still counts.
        it->reading = true;
        readMessages(socket, it->id, true);
    }
    const PhoneSession session = m_sessions.take(socket);
    if (session.handshaken) {
        Q_EMIT phoneDisconnected(session.id);
    }
}

void PhoneServer::readTurn(QTcpSocket* socket)
{
    PhoneSession* session = findOpen(socket);
    if (session == nullptr || session->reading) {
        return;
    }
    session->reading = true;
    readMessages(socket, session->id, false);
    session = findOpen(socket);
    if (session != nullptr) {
        session->reading = false;
        if (session->stranger()) {
            limitStrangersBytes();
        }
    }
}

void PhoneServer::readMessages(QTcpSocket* socket, int id, bool untilEmpty)
{
    const qint64 startMs = m_clock.elapsed();
    for (qint64 now = startMs;; now = m_clock.elapsed()) {
        // Looked up each time: a receiver of our signals may have ended this or any connection.
        PhoneSession* const session = findOpen(socket);
        if (session == nullptr || session->id != id || session->backlogged) {
            return;
        }
        if (!untilEmpty && now - startMs > kTurnMs) {
            queueTurn(socket, *session);
            return;
        }
        switch (readMessage(socket, *session, now)) {
        case MessageSplitter::Result::NeedMore:
            return;
        case MessageSplitter::Result::Message:
            dispatch(socket, *session, session->splitter.take());
            break;
        case MessageSplitter::Result::Oversized:
            close(socket);
            return;
        }
    }
}

// Reads to the end of the message that is coming in, or until the socket has no more.
MessageSplitter::Result PhoneServer::readMessage(QTcpSocket* socket, PhoneSession& session,
                                                 qint64 nowMs)
{
    for (;;) {
        const std::span<char> target = session.splitter.writable();
        const qint64 count = socket->read(target.data(), std::ssize(target));
        if (count <= 0) {
            return MessageSplitter::Result::NeedMore;
        }
        session.lastRxMs = nowMs;
        const MessageSplitter::Result result = session.splitter.commit(count);
        if (result != MessageSplitter::Result::NeedMore || count < std::ssize(target)) {
            return result;
        }
    }
}

void PhoneServer::queueTurn(QTcpSocket* socket, PhoneSession& session)
{
    if (session.turnQueued) {
        return;
    }
    session.turnQueued = true;
    // The socket is the context, so that a turn never outlives it.
    QMetaObject::invokeMethod(
        socket,
        [this, socket] {
            if (PhoneSession* const waiting = findOpen(socket)) {
                waiting->turnQueued = false;
                readTurn(socket);
            }
        },
        Qt::QueuedConnection);
}

void PhoneServer::onBytesWritten(QTcpSocket* socket)
{
    PhoneSession* const session = findOpen(socket);
    if (session == nullptr || !session->backlogged) {
        return;
    }
    // While its messages wait, taking what we sent is the peer's only sign of life.
    session->lastRxMs = m_clock.elapsed();
    if (socket->bytesToWrite() <= kMaxBacklog) {
        session->backlogged = false;
        queueTurn(socket, *session);
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
    QList<QTcpSocket*> silent;
    for (const auto& [socket, session] : std::as_const(m_sessions).asKeyValueRange()) {
        if (session.closing || (!session.handshaken && !session.backlogged)) {
            continue;
        }
        if (!heldUp && now - session.lastRxMs > m_timings.silenceLimit.count()) {
            silent.append(socket);
        } else if (session.handshaken) {
            send(socket, MessageType::Ping, pingPayload(now));
        }
    }
    for (QTcpSocket* const socket : std::as_const(silent)) {
        close(socket);
    }
}

void PhoneServer::send(QTcpSocket* socket, MessageType type, const QByteArray& payload)
{
    PhoneSession* const session = findOpen(socket);
    if (session == nullptr || socket->state() != QAbstractSocket::ConnectedState) {
        return;
    }
    const auto header =
        encodeHeader({.type = type, .flags = 0, .length = static_cast<quint32>(payload.size())});
    socket->write(header.data(), kHeaderSize);
    socket->write(payload); // shares it
    session->backlogged = session->backlogged || socket->bytesToWrite() > kMaxBacklog;
}

void PhoneServer::close(QTcpSocket* socket)
{
    PhoneSession* const session = findOpen(socket);
    if (session == nullptr) {
        return;
    }
    session->closing = true;
    socket->disconnectFromHost();
    if (socket->state() != QAbstractSocket::UnconnectedState) {
        // It first delivers what was sent before, and waits as long as the peer does not read.
        QTimer::singleShot(m_timings.closeGrace, socket, [socket] { socket->abort(); });
    }
}

// The session of socket, unless it is gone or being closed. Compares the pointer only, so socket
// may be null or point to what is deleted already. Valid until the next signal.
PhoneSession* PhoneServer::findOpen(QTcpSocket* socket)
{
    const auto it = m_sessions.find(socket);
    return it == m_sessions.end() || it->closing ? nullptr : &*it;
}

QTcpSocket* PhoneServer::findPhone(int id) const
{
    for (const auto& [socket, session] : m_sessions.asKeyValueRange()) {
        if (session.live() && session.id == id) {
            return socket;
        }
    }
    return nullptr;
}

} // namespace pevrix
