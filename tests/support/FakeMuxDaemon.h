#pragma once

#include "usb/MuxPacket.h"
#include "usb/UsbMuxClient.h"

#include <QHash>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <functional>
#include <utility>

namespace pevrix {

// A usbmux daemon on an ephemeral port that does as a test tells it, faults included.
class FakeMuxDaemon
{
public:
    FakeMuxDaemon()
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
        appear();
    }

    // Listens, on the same port every time.
    void appear()
    {
        if (!m_server.listen(QHostAddress::LocalHost, m_port)) {
            qFatal("the fake daemon cannot listen: %s", qPrintable(m_server.errorString()));
        }
        m_port = m_server.serverPort();
    }

    void vanish()
    {
        m_server.close();
        listeners.clear();
        tunnels.clear();
        for (auto* socket : m_server.findChildren<QTcpSocket*>()) {
            socket->abort(); // accept() made it clean up after itself
        }
    }

    // Timers short enough for tests.
    [[nodiscard]] UsbMuxOptions options() const
    {
        using std::chrono::milliseconds;
        return {.port = m_port,
                .reconnectInterval = milliseconds(20),
                .tunnelInterval = milliseconds(20)};
    }

    // A packet as a daemon writes it: indented, tagged 0.
    static QByteArray packet(const QByteArray& entries)
    {
        const QByteArray payload = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                   "<plist version=\"1.0\">\n<dict>\n\t" +
                                   entries + "\n</dict>\n</plist>\n";
        return buildMuxHeader(payload.size(), 0) + payload;
    }

    static QByteArray result(int number)
    {
        return packet("<key>MessageType</key>\n\t<string>Result</string>\n\t<key>Number</key>\n\t"
                      "<integer>" +
                      QByteArray::number(number) + "</integer>");
    }

    static QByteArray attached(const QByteArray& id, const QByteArray& connection = "USB")
    {
        return packet("<key>MessageType</key>\n\t<string>Attached</string>\n\t<key>DeviceID</key>"
                      "\n\t<integer>" +
                      id +
                      "</integer>\n\t<key>Properties</key>\n\t<dict>\n\t\t"
                      "<key>ConnectionType</key>\n\t\t<string>" +
                      connection + "</string>\n\t</dict>");
    }

    static QByteArray detached(int id)
    {
        return packet(
            "<key>MessageType</key><string>Detached</string><key>DeviceID</key><integer>" +
            QByteArray::number(id) + "</integer>");
    }

    void announce(const QByteArray& bytes)
    {
        for (auto* socket : std::as_const(listeners)) {
            socket->write(bytes);
        }
    }

    [[nodiscard]] qsizetype connections() const
    {
        return m_server.findChildren<QTcpSocket*>().size();
    }

    // What a request for a device's port is answered with; nothing leaves it unanswered.
    std::function<QByteArray(int device)> answer = [](int) {
        return result(0);
    };
    QByteArray listenAnswer = result(0);

    QList<QTcpSocket*> listeners;
    QHash<int, QTcpSocket*> tunnels; // the last one of each device
    QHash<int, int> requests;        // for a tunnel, by device
    QList<QByteArray> received;      // whole packets

private:
    void accept()
    {
        QTcpSocket* socket = m_server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, &m_server,
                         [this, socket] { read(socket); });
        QObject::connect(socket, &QTcpSocket::disconnected, &m_server, [this, socket] {
            listeners.removeAll(socket);
            tunnels.removeIf([socket](const auto& tunnel) { return *tunnel == socket; });
            socket->deleteLater();
        });
    }

    void read(QTcpSocket* socket)
    {
        if (std::ranges::find(tunnels, socket) != tunnels.end()) {
            return; // the phone's bytes: for the test
        }
        QByteArray bytes = socket->peek(socket->bytesAvailable());
        const QByteArray whole = bytes;
        const auto message = takeMessage(bytes);
        if (!message) {
            return;
        }
        received += socket->read(whole.size() - bytes.size());
        if (message->value(QStringLiteral("MessageType")) == QStringLiteral("Listen")) {
            listeners += socket;
            socket->write(listenAnswer);
        } else {
            const int device = message->value(QStringLiteral("DeviceID")).toInt();
            ++requests[device];
            tunnels[device] = socket;
            socket->write(answer(device));
        }
    }

    QTcpServer m_server;
    quint16 m_port = 0;
};

} // namespace pevrix
