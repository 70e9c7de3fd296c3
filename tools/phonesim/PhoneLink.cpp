#include "tools/phonesim/PhoneLink.h"

#include "tools/phonesim/SocketEnd.h"

#include <QIODevice>

namespace pevrix {

PhoneLink::PhoneLink(QTcpSocket* socket, RunStats& stats, QIODevice* dump, QObject* parent)
    : QObject(parent)
    , m_socket(socket)
    , m_stats(stats)
    , m_dump(dump)
{
    socket->setParent(this);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(socket, &QTcpSocket::readyRead, this, &PhoneLink::readAll);
    connect(socket, &QTcpSocket::disconnected, this, &PhoneLink::closed);
    connect(socket, &QTcpSocket::bytesWritten, this, [this] {
        shutDownWhenSent();
        Q_EMIT sentSome();
    });
    // What arrived before the socket came here is not announced again.
    QMetaObject::invokeMethod(this, &PhoneLink::readAll, Qt::QueuedConnection);
}

void PhoneLink::write(const char* bytes, qsizetype count)
{
    m_stats.bytes += m_socket->write(bytes, count) == count ? count : 0;
}

void PhoneLink::send(MessageType type, QByteArrayView payload)
{
    if (!m_silent) {
        const QByteArray message = buildMessage(type, payload);
        write(message.constData(), message.size());
    }
}

void PhoneLink::sendConfig(std::span<const std::uint8_t> parameterSets)
{
    const QByteArrayView bytes(parameterSets.data(), std::ssize(parameterSets));
    send(MessageType::VideoConfig, bytes);
    ++m_stats.configs;
    if (m_dump) {
        m_dump->write(bytes.data(), bytes.size());
    }
}

void PhoneLink::sendFrame(const AccessUnit& unit, qint64 ptsUsec)
{
    if (m_silent) {
        return;
    }
    const QByteArrayView bytes(unit.bytes.data(), std::ssize(unit.bytes));
    const auto head = encodeVideoFrameHeader(ptsUsec, unit.keyframe, bytes.size());
    write(head.data(), std::ssize(head));
    write(bytes.data(), bytes.size());
    ++m_stats.frames;
    m_stats.keyframes += unit.keyframe ? 1 : 0;
    if (m_dump) {
        m_dump->write(bytes.data(), bytes.size());
    }
}

void PhoneLink::sendMalformed(const QByteArray& bytes)
{
    write(bytes.constData(), bytes.size());
    ++m_stats.malformed;
}

bool PhoneLink::isCongested() const
{
    return m_socket->bytesToWrite() > kMaxPendingBytes;
}

void PhoneLink::readAll()
{
    while (m_socket->bytesAvailable() > 0) {
        const std::span<char> target = m_splitter.writable();
        if (m_silent || m_finishing || target.empty()) {
            m_socket->readAll(); // of no interest, or out of step
            return;
        }
        const qint64 count = m_socket->read(target.data(), std::ssize(target));
        if (count <= 0) {
            return;
        }
        if (m_splitter.commit(count) == MessageSplitter::Result::Message) {
            Q_EMIT received(m_splitter.take());
        }
    }
}

void PhoneLink::finish()
{
    m_finishing = true;
    shutDownWhenSent();
}

void PhoneLink::shutDownWhenSent()
{
    if (m_finishing && m_socket->bytesToWrite() == 0) {
        shutDownSending(*m_socket);
    }
}

void PhoneLink::reset()
{
    resetConnection(*m_socket);
}

} // namespace pevrix
