// What PhoneServer does with each message: the part of it that speaks with the application.
#include "phone/Handshake.h"
#include "phone/PhoneServer.h"

#include <utility>

namespace pevrix {

void PhoneServer::dispatch(QTcpSocket* socket, PhoneSession& session, const Message& message)
{
    const int id = session.id;
    switch (message.type) {
    case MessageType::Bye:
        if (session.usb) {
            Q_EMIT usbByeReceived(socket);
        }
        close(socket);
        break;
    case MessageType::Hello:
        handleHello(socket, message.payload);
        break;
    case MessageType::VideoConfig:
        Q_EMIT videoConfig(id, message.payload);
        break;
    case MessageType::VideoFrame:
        dispatchVideoFrame(id, message);
        break;
    case MessageType::StreamInfo: {
        const StreamDescription stream = parseStreamInfo(message.payload);
        if (!session.handshaken) {
            session.earlyStream = stream;
        }
        Q_EMIT streamInfo(id, stream.width, stream.height, stream.fps);
        break;
    }
    case MessageType::Thumbnail:
        Q_EMIT thumbnail(id, message.payload);
        break;
    case MessageType::Ping:
        send(socket, MessageType::Pong, message.payload);
        break;
    default:
        break;
    }
}

void PhoneServer::dispatchVideoFrame(int id, const Message& message)
{
    ++m_framesReceived;
    if (message.timestampUsec) {
        Q_EMIT videoFrame(id, message.payload, *message.timestampUsec,
                          (message.flags & kKeyframeFlag) != 0);
    }
}

void PhoneServer::handleHello(QTcpSocket* socket, const QByteArray& payload)
{
    const Hello hello = parseHello(payload);
    if (!admit(socket, hello)) {
        return;
    }
    // Looked up only now: admitting the phone told others about it and about its rivals.
    PhoneSession* const session = findOpen(socket);
    if (session == nullptr) {
        return;
    }
    session->deviceId = hello.deviceId;
    session->name = hello.name;
    session->handshaken = true;
    const int id = session->id;
    const bool usb = session->usb;
    const auto stream = std::exchange(session->earlyStream, std::nullopt);
    send(socket, MessageType::HelloReply, helloReplyPayload());
    Q_EMIT phoneConnected(id, hello.deviceId, hello.name, hello.model, hello.os, usb);
    if (stream && findOpen(socket) != nullptr) {
        Q_EMIT streamInfo(id, stream->width, stream->height, stream->fps);
    }
}

bool PhoneServer::admit(QTcpSocket* socket, const Hello& hello)
{
    const HelloVerdict verdict = judgeHello(hello, m_token, m_trusted);
    if (verdict.refusal) {
        refuse(socket, *verdict.refusal);
        return false;
    }
    if (verdict.newlyTrusted) {
        m_trusted.insert(hello.deviceId, hello.token);
        Q_EMIT devicePaired(hello.deviceId, hello.token);
    }
    return hello.deviceId.isEmpty() || settleDuplicates(socket, hello.deviceId);
}

bool PhoneServer::settleDuplicates(QTcpSocket* socket, const QString& deviceId)
{
    const PhoneSession* const newcomer = findOpen(socket);
    if (newcomer == nullptr) {
        return false;
    }
    QList<RivalSession> rivals;
    for (const PhoneSession& session : std::as_const(m_sessions)) {
        if (session.live() && session.id != newcomer->id && session.deviceId == deviceId) {
            rivals.append({.id = session.id, .usb = session.usb});
        }
    }
    const DuplicateVerdict verdict = judgeDuplicates(newcomer->usb, rivals);
    if (verdict.refusal) {
        refuse(socket, *verdict.refusal);
        return false;
    }
    for (const int id : verdict.replaced) {
        close(findPhone(id));
    }
    return true;
}

void PhoneServer::refuse(QTcpSocket* socket, Refusal refusal)
{
    send(socket, MessageType::Error, refusalPayload(refusal));
    close(socket);
}

} // namespace pevrix
