#pragma once

#include "phone/MessageSplitter.h"
#include "phone/Protocol.h"
#include "tools/doubles/WaitUntil.h"

#include <QHostAddress>
#include <QTcpSocket>

namespace pevrix {

inline QByteArray helloMessage(const QByteArray& deviceId, const QByteArray& token = "T")
{
    return buildMessage(MessageType::Hello, R"({"v":1,"token":")" + token + R"(","deviceId":")" +
                                                deviceId + R"(","name":"Ann's phone",)" +
                                                R"("modelName":"P9","osVersion":"17.1"})");
}

inline QByteArray frameMessage(qint64 ptsUsec, const QByteArray& accessUnit, bool keyframe = false)
{
    const auto header = encodeVideoFrameHeader(ptsUsec, keyframe, accessUnit.size());
    return QByteArray(header.data(), std::ssize(header)) + accessUnit;
}

// The phone's end of a connection; what the PC sends is gathered in received.
struct TestPhone
{
    QTcpSocket socket;
    QByteArray received;

    TestPhone()
    {
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket,
                         [this] { received += socket.readAll(); });
    }
    explicit TestPhone(quint16 port)
        : TestPhone()
    {
        socket.connectToHost(QHostAddress::LocalHost, port);
    }

    bool closed() const { return socket.state() == QAbstractSocket::UnconnectedState; }
    bool waitForBytes(qsizetype count)
    {
        return waitUntil([&] { return received.size() >= count; });
    }
    // Sends bytes and waits until the PC has worked through them: pings are answered in order.
    bool sendAndSettle(const QByteArray& bytes)
    {
        received.clear();
        const QByteArray mark = buildMessage(MessageType::Pong, "settled");
        socket.write(bytes + buildMessage(MessageType::Ping, "settled"));
        return waitUntil([&] { return closed() || received.contains(mark); }) && !closed();
    }
};

} // namespace pevrix
