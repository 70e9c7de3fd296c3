#pragma once

#include "phone/MessageSplitter.h"
#include "phone/Protocol.h"
#include "tools/doubles/WaitUntil.h"

#include <gtest/gtest.h>

#include <QHostAddress>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

#include <vector>

namespace pevrix {

inline QByteArray helloMessage(const QByteArray& deviceId, const QByteArray& token = "T")
{
    return buildMessage(MessageType::Hello, R"({"v":1,"token":")" + token + R"(","deviceId":")" +
                                                deviceId + R"(","name":"Ann's phone",)" +
                                                R"("modelName":"P9","osVersion":"17.1"})");
}

inline QByteArray streamMessage(int width, int height, int fps = 30)
{
    const QString json = QStringLiteral(R"({"width":%1,"height":%2,"fps":%3})");
    return buildMessage(MessageType::StreamInfo, json.arg(width).arg(height).arg(fps).toUtf8());
}

inline QByteArray frameMessage(qint64 ptsUsec, QByteArrayView accessUnit, bool keyframe = false)
{
    const auto header = encodeVideoFrameHeader(ptsUsec, keyframe, accessUnit.size());
    return QByteArray(header.data(), std::ssize(header)).append(accessUnit);
}

// The phone's end of a connection, whose every byte the test chooses; what the PC sends is gathered
// in received, and cut up in messages.
struct TestPhone
{
    QTcpSocket socket;
    QByteArray received;
    std::vector<Message> messages;

    TestPhone()
    {
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [this] {
            const QByteArray bytes = socket.readAll();
            received += bytes;
            m_splitter.feed(bytes, [this](const Message& message) { messages.push_back(message); });
        });
    }
    explicit TestPhone(quint16 port, const QHostAddress& pc = QHostAddress::LocalHost)
        : TestPhone()
    {
        socket.connectToHost(pc, port);
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
    // What the PC has wanted of the phone's video until now.
    std::string orders()
    {
        EXPECT_TRUE(sendAndSettle({}));
        QStringList orders;
        for (const Message& message : messages) {
            if (message.type == MessageType::Active) {
                orders += message.payload.contains("true") ? QStringLiteral("send")
                                                           : QStringLiteral("hold");
            }
        }
        return orders.join(u' ').toStdString();
    }

private:
    MessageSplitter m_splitter;
};

// The PC's end of a tunnel to this phone, for who takes it over.
inline QTcpSocket* openTunnel(TestPhone& phone)
{
    QTcpServer listener;
    EXPECT_TRUE(listener.listen(QHostAddress::LocalHost));
    phone.socket.connectToHost(QHostAddress::LocalHost, listener.serverPort());
    EXPECT_TRUE(waitUntil([&] { return listener.hasPendingConnections(); }));
    QTcpSocket* const socket = listener.nextPendingConnection();
    socket->setParent(nullptr);
    return socket;
}

} // namespace pevrix
