#include "phone/PhoneConnection.h"

#include <QTimer>

#include <algorithm>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

// What is read at once where no longer payload is under way: some small messages, or the head of a
// large one. Little enough that copying it once more costs nothing.
constexpr std::size_t kReadAhead = std::size_t{16} * 1024;

// What Qt may hold of the bytes of a tunnel, whose socket is a buffered one.
constexpr qint64 kReadBufferSize = qint64{1024} * 1024;

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
    socket->setReadBufferSize(kReadBufferSize);
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
    return m_splitter.heldBytes() + std::ssize(m_readAhead) + m_socket->bytesToWrite();
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
    m_more = true;
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
        const qsizetype count = target.empty() ? 0 : read(target);
        if (count <= 0 && !target.empty()) {
            return MessageSplitter::Result::NeedMore;
        }
        m_lastSign = now;
        const MessageSplitter::Result result = m_splitter.commit(count);
        if (result != MessageSplitter::Result::NeedMore) {
            return result;
        }
    }
}

// From what was read ahead, else from the socket: a large payload straight into its own memory.
qsizetype PhoneConnection::read(std::span<char> target)
{
    if (m_ahead.empty() && target.size() >= kReadAhead) {
        return readSocket(target);
    }
    if (m_ahead.empty()) {
        m_readAhead.resize(kReadAhead);
        const qsizetype count = readSocket(m_readAhead);
        if (count <= 0) {
            return count;
        }
        m_ahead = std::span(m_readAhead).first(static_cast<std::size_t>(count));
    }
    const std::size_t count = std::min(target.size(), m_ahead.size());
    std::ranges::copy(m_ahead.first(count), target.begin());
    m_ahead = m_ahead.subspan(count);
    return static_cast<qsizetype>(count);
}

// After less than was asked for there is no more, which need not be asked: readyRead tells.
qsizetype PhoneConnection::readSocket(std::span<char> target)
{
    if (!m_more) {
        return 0;
    }
    const qint64 count = m_socket->read(target.data(), std::ssize(target));
    m_more = count == std::ssize(target);
    return count;
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
    } else if (open() && (m_socket->bytesAvailable() > 0 || !m_ahead.empty())) {
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
