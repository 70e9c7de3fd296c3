#include "phone/PhoneConnection.h"

#include <QTimer>

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

PhoneConnection::PhoneConnection(int id, QTcpSocket* socket, bool usb,
                                 std::chrono::milliseconds closeGrace, Host& host, QObject* parent)
    : QObject(parent)
    , m_id(id)
    , m_usb(usb)
    , m_closeGrace(closeGrace)
    , m_host(host)
    , m_socket(socket)
{
    m_clock.start();
    socket->setParent(this);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket->setReadBufferSize(kReadBufferSize);
    connect(socket, &QTcpSocket::readyRead, this, &PhoneConnection::takeTurn);
    connect(socket, &QTcpSocket::bytesWritten, this, &PhoneConnection::onBytesWritten);
    connect(socket, &QTcpSocket::disconnected, this, &PhoneConnection::onDisconnected);
    if (socket->bytesAvailable() > 0) {
        // readyRead comes with fresh bytes only, and these have been announced before.
        queueTurn();
    }
}

PhoneConnection::~PhoneConnection()
{
    // A socket reports its end while it is deleted; nobody is left to hear it then.
    m_socket->disconnect(this);
}

bool PhoneConnection::backlogged() const
{
    return m_socket->bytesToWrite() > kMaxBacklog;
}

std::chrono::milliseconds PhoneConnection::silence() const
{
    return std::chrono::milliseconds(m_clock.elapsed() - m_lastSignMs);
}

void PhoneConnection::accept(const Hello& hello)
{
    if (open()) {
        m_hello = hello;
        m_state = State::Handshaken;
    }
}

void PhoneConnection::send(MessageType type, const QByteArray& payload)
{
    if (!open() || m_socket->state() != QAbstractSocket::ConnectedState) {
        return;
    }
    const auto header =
        encodeHeader({.type = type, .flags = 0, .length = static_cast<quint32>(payload.size())});
    m_socket->write(header.data(), kHeaderSize);
    m_socket->write(payload); // shares it
}

void PhoneConnection::close()
{
    if (!open()) {
        return;
    }
    m_state = State::Closing;
    m_socket->disconnectFromHost();
    if (m_socket->state() != QAbstractSocket::UnconnectedState) {
        // It first delivers what was sent before, and waits as long as the peer does not read.
        QTimer::singleShot(m_closeGrace, m_socket, &QTcpSocket::abort);
    }
}

void PhoneConnection::drop()
{
    if (open()) {
        m_state = State::Closing;
        m_socket->abort();
    }
}

void PhoneConnection::takeTurn()
{
    if (!open() || m_turn == Turn::Running) {
        return;
    }
    m_turn = Turn::Running;
    const bool more = readMessages(false);
    m_turn = Turn::None;
    if (m_state == State::Ended) {
        deleteLater();
    } else if (open()) {
        if (more) {
            queueTurn();
        }
        m_host.onTurnTaken(*this);
    }
}

// Reports message after message. True when it stopped only because the turn is over.
bool PhoneConnection::readMessages(bool untilEmpty)
{
    const qint64 startMs = m_clock.elapsed();
    // Asked each time: who hears of a message may end this connection, or leave it a backlog.
    for (qint64 now = startMs; open() && !backlogged(); now = m_clock.elapsed()) {
        if (!untilEmpty && now - startMs > kTurnMs) {
            return true;
        }
        switch (readMessage(now)) {
        case MessageSplitter::Result::NeedMore:
            return false;
        case MessageSplitter::Result::Message:
            m_host.onMessage(*this, m_splitter.take());
            break;
        case MessageSplitter::Result::Oversized:
            close();
            return false;
        }
    }
    return false;
}

// Reads to the end of the message that is coming in, or until the socket has no more.
MessageSplitter::Result PhoneConnection::readMessage(qint64 nowMs)
{
    for (;;) {
        const std::span<char> target = m_splitter.writable();
        const qint64 count = m_socket->read(target.data(), std::ssize(target));
        if (count <= 0) {
            return MessageSplitter::Result::NeedMore;
        }
        m_lastSignMs = nowMs;
        const MessageSplitter::Result result = m_splitter.commit(count);
        if (result != MessageSplitter::Result::NeedMore || count < std::ssize(target)) {
            return result;
        }
    }
}

void PhoneConnection::queueTurn()
{
    if (m_turn != Turn::None) {
        return;
    }
    m_turn = Turn::Queued;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_turn == Turn::Queued) { // readyRead may have been faster
                takeTurn();
            }
        },
        Qt::QueuedConnection);
}

void PhoneConnection::onBytesWritten(qint64 count)
{
    const bool wasBacklogged = m_socket->bytesToWrite() + count > kMaxBacklog;
    if (!open() || !wasBacklogged) {
        return;
    }
    // While its messages wait, taking what we sent is the peer's only sign of life.
    m_lastSignMs = m_clock.elapsed();
    if (!backlogged()) {
        queueTurn();
    }
}

void PhoneConnection::onDisconnected()
{
    const bool running = m_turn == Turn::Running;
    if (open() && !running) {
        // The peer ended the connection: what it sent before still counts.
        m_turn = Turn::Running;
        (void)readMessages(true);
    }
    m_state = State::Ended;
    m_host.onEnded(*this);
    if (!running) {
        deleteLater();
    }
}

} // namespace pevrix
