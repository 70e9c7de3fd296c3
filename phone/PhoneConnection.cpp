#include "phone/PhoneConnection.h"

#include <QTimer>

#include <algorithm>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

// What a socket may hold of a phone's bytes before we read them; TCP slows the phone down beyond
// it. Below 1 MiB the throughput suffers from the many small turns.
constexpr qint64 kReadBufferSize = qint64{1024} * 1024;

// The same for a stranger, whose throughput does not matter. There may be many of them.
constexpr qint64 kStrangerReadBufferSize = qint64{64} * 1024;

// How long a phone, and a stranger, may keep the event loop busy before the others get their turn.
constexpr auto kTurn = 8ms;
constexpr auto kStrangerTurn = 250us;

// A peer that leaves more than this unread is owed no further answers: its messages wait until
// it has taken what was sent.
constexpr qint64 kMaxBacklog = qint64{1024} * 1024;
constexpr qint64 kMaxStrangerBacklog = qint64{64} * 1024;

// What waits to be taken lies in pieces of this size, which are freed one by one: a peer that
// leaves a byte of a large answer does not hold all of it.
constexpr qsizetype kWriteSize = qsizetype{32} * 1024;

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
    socket->setReadBufferSize(usb ? kReadBufferSize : kStrangerReadBufferSize);
    connect(socket, &QTcpSocket::readyRead, this, &PhoneConnection::onReadyRead);
    connect(socket, &QTcpSocket::bytesWritten, this, &PhoneConnection::onBytesWritten);
    connect(socket, &QTcpSocket::disconnected, this, &PhoneConnection::onDisconnected);
    if (socket->bytesAvailable() > 0) {
        // readyRead comes with fresh bytes only, and these have been announced before.
        wantTurn();
    }
}

PhoneConnection::~PhoneConnection()
{
    // A socket reports its end while it is deleted; nobody is left to hear it then.
    m_socket->disconnect(this);
}

bool PhoneConnection::backlogged() const
{
    return m_socket->bytesToWrite() > maxBacklog();
}

qint64 PhoneConnection::maxBacklog() const
{
    return stranger() ? kMaxStrangerBacklog : kMaxBacklog;
}

qint64 PhoneConnection::heldBytes() const
{
    return m_splitter.heldBytes() + m_socket->bytesAvailable() + m_socket->bytesToWrite();
}

std::chrono::milliseconds PhoneConnection::silence() const
{
    return std::chrono::floor<std::chrono::milliseconds>(m_clock.durationElapsed() - m_lastSign);
}

void PhoneConnection::accept(const Hello& hello)
{
    if (open()) {
        m_hello = hello;
        m_state = State::Handshaken;
        m_socket->setReadBufferSize(kReadBufferSize);
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
    for (QByteArrayView rest = payload; !rest.isEmpty();) {
        const QByteArrayView piece = rest.first(std::min(rest.size(), kWriteSize));
        m_socket->write(piece.data(), piece.size());
        rest = rest.sliced(piece.size());
    }
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
    endWhenOver();
}

void PhoneConnection::drop()
{
    if (m_state != State::Ended) {
        m_state = State::Closing;
        m_socket->abort();
        endWhenOver();
    }
}

void PhoneConnection::onReadyRead()
{
    if (stranger()) {
        wantTurn();
    } else {
        takeTurn();
    }
}

void PhoneConnection::wantTurn()
{
    if (m_turn != Turn::None) {
        return;
    }
    m_turn = Turn::Queued;
    if (stranger()) {
        m_host.onTurnWanted(*this);
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_turn == Turn::Queued) { // readyRead may have been faster
                takeTurn();
            }
        },
        Qt::QueuedConnection);
}

void PhoneConnection::takeTurn()
{
    if (m_turn == Turn::Running || m_state == State::Ended) {
        return;
    }
    m_turn = Turn::Running;
    const bool more = readMessages();
    m_turn = Turn::None;
    if (open() && more) {
        wantTurn();
    } else {
        endWhenOver();
    }
}

bool PhoneConnection::readMessages()
{
    const std::chrono::nanoseconds turn = stranger() ? kStrangerTurn : kTurn;
    const auto start = m_clock.durationElapsed();
    // Asked each time: who hears of a message may end this connection, or leave it a backlog.
    for (auto now = start; open() && !backlogged(); now = m_clock.durationElapsed()) {
        if (now - start > turn) {
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
MessageSplitter::Result PhoneConnection::readMessage(QElapsedTimer::Duration now)
{
    for (;;) {
        const std::span<char> target = m_splitter.writable();
        const qint64 count = m_socket->read(target.data(), std::ssize(target));
        if (count <= 0 && !target.empty()) {
            return MessageSplitter::Result::NeedMore;
        }
        m_lastSign = now;
        const MessageSplitter::Result result = m_splitter.commit(count);
        if (result != MessageSplitter::Result::NeedMore || count < std::ssize(target)) {
            return result;
        }
    }
}

void PhoneConnection::onBytesWritten(qint64 count)
{
    const bool wasBacklogged = m_socket->bytesToWrite() + count > maxBacklog();
    if (!open() || !wasBacklogged) {
        return;
    }
    // While its messages wait, taking what we sent is the peer's only sign of life.
    m_lastSign = m_clock.durationElapsed();
    if (!backlogged()) {
        wantTurn();
    }
}

void PhoneConnection::onDisconnected()
{
    if (m_turn == Turn::Running) {
        m_state = State::Closing; // closed by the receiver of a message
    } else if (open() && m_socket->bytesAvailable() > 0) {
        wantTurn(); // what the peer sent before it ended the connection still counts
    }
    endWhenOver();
}

void PhoneConnection::endWhenOver()
{
    const bool turnAhead = m_turn == Turn::Running || (m_turn == Turn::Queued && open());
    if (m_socket->state() != QAbstractSocket::UnconnectedState || turnAhead ||
        m_state == State::Ended) {
        return;
    }
    m_state = State::Ended;
    m_host.onEnded(*this);
    deleteLater();
}

} // namespace pevrix
