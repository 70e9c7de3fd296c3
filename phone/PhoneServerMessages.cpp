// What PhoneServer does with each message: the part of it that speaks with the application.
#include "phone/Handshake.h"
#include "phone/PhoneServer.h"

#include <algorithm>

namespace pevrix {

void PhoneServer::onMessage(PhoneConnection& from, const Message& message)
{
    const int id = from.id();
    switch (message.type) {
    case MessageType::Bye:
        if (from.usb()) {
            Q_EMIT usbByeReceived(from.socket());
        }
        from.close();
        break;
    case MessageType::Hello:
        handleHello(from, parseHello(message.payload));
        break;
    case MessageType::VideoConfig:
        Q_EMIT videoConfig(id, message.payload);
        break;
    case MessageType::VideoFrame:
        passOnVideoFrame(id, message);
        break;
    case MessageType::StreamInfo: {
        const StreamDescription stream = parseStreamInfo(message.payload);
        Q_EMIT streamInfo(id, stream.width, stream.height, stream.fps);
        break;
    }
    case MessageType::Thumbnail:
        Q_EMIT thumbnail(id, message.payload);
        break;
    case MessageType::Ping:
        from.send(MessageType::Pong, message.payload);
        break;
    default:
        break;
    }
}

void PhoneServer::passOnVideoFrame(int id, const Message& message)
{
    ++m_framesReceived;
    if (message.timestampUsec) {
        Q_EMIT videoFrame(id, message.payload, *message.timestampUsec,
                          (message.flags & kKeyframeFlag) != 0);
    }
}

void PhoneServer::handleHello(PhoneConnection& from, const Hello& hello)
{
    // Admitting the phone tells others about it and its rivals: they may have ended it.
    if (!admit(from, hello) || !from.open()) {
        return;
    }
    from.accept(hello);
    from.send(MessageType::HelloReply, helloReplyPayload());
    Q_EMIT phoneConnected(from.id(), hello.deviceId, hello.name, hello.model, hello.os, from.usb());
}

bool PhoneServer::admit(PhoneConnection& newcomer, const Hello& hello)
{
    const HelloVerdict verdict = judgeHello(hello, m_token, m_trusted);
    if (verdict.refusal) {
        refuse(newcomer, *verdict.refusal);
        return false;
    }
    if (verdict.newlyTrusted || m_trusted.contains(hello.deviceId)) {
        m_lastUse.insert(hello.deviceId, ++m_uses);
    }
    if (verdict.newlyTrusted) {
        m_trusted.insert(hello.deviceId, hello.token);
        while (m_trusted.size() > kMaxTrusted) {
            forgetUnusedPhone();
        }
        Q_EMIT devicePaired(hello.deviceId, hello.token);
    }
    return hello.deviceId.isEmpty() || settleDuplicates(newcomer, hello.deviceId);
}

void PhoneServer::forgetUnusedPhone()
{
    for (const auto& [id, connection] : m_connections) {
        const auto& hello = connection->hello();
        if (hello && connection->handshaken() && m_trusted.contains(hello->deviceId)) {
            m_lastUse.insert(hello->deviceId, m_uses); // it is in use
        }
    }
    const QList<QString> ids = m_trusted.keys();
    const auto unused = std::ranges::min_element(
        ids, {}, [this](const QString& id) { return m_lastUse.value(id); });
    m_trusted.remove(*unused);
    m_lastUse.remove(*unused);
}

bool PhoneServer::settleDuplicates(PhoneConnection& newcomer, const QString& deviceId)
{
    QList<RivalSession> rivals;
    for (const auto& [id, connection] : m_connections) {
        const std::optional<Hello>& known = connection->hello();
        if (connection->handshaken() && connection != &newcomer && known &&
            known->deviceId == deviceId) {
            rivals.append({.id = id, .usb = connection->usb()});
        }
    }
    const DuplicateVerdict verdict = judgeDuplicates(newcomer.usb(), rivals);
    if (verdict.refusal) {
        refuse(newcomer, *verdict.refusal);
        return false;
    }
    for (const int id : verdict.replaced) {
        // Closing one tells others, who may end the next.
        if (const auto it = m_connections.find(id); it != m_connections.end()) {
            it->second->close();
        }
    }
    return true;
}

void PhoneServer::refuse(PhoneConnection& connection, Refusal refusal)
{
    connection.send(MessageType::Error, refusalPayload(refusal));
    connection.close();
}

} // namespace pevrix
