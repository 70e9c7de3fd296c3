#pragma once

#include "phone/LogLimiter.h"
#include "phone/PhoneConnection.h"
#include "phone/Protocol.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <deque>
#include <map>

namespace pevrix {

enum class Refusal;

// How a PhoneServer keeps its connections alive; tests shorten these.
struct PhoneServerTimings
{
    std::chrono::milliseconds pingInterval{1500};
    // A handshaken phone that sends nothing for longer is dropped at the next ping.
    std::chrono::milliseconds silenceLimit{4000};
    // How long a connection that we close may take to accept what it was sent before.
    std::chrono::milliseconds closeGrace{4000};
};

// The PC's end of the phone link: listens on the network, adopts USB tunnels, decides who may come
// in, keeps connections alive and turns the phones' messages into signals. It decodes nothing and
// stores nothing on disk.
//
// Lives on one thread with an event loop, and emits there. Owns every socket it serves. What a
// peer can make it hold is bounded: per connection about two largest payloads, and for strangers,
// the network connections that have not said a valid hello, together kMaxStrangers and
// kMaxStrangersBytes. All strangers together get a small share of the thread's time, so that
// however many there are and whatever they send, phones are served at once.
class PhoneServer : public QObject, private PhoneConnection::Host
{
    Q_OBJECT

public:
    // Beyond this many strangers the oldest one of the address that has most of them is dropped, so
    // that a flood of connections never keeps a phone of another address out. Far above what phones
    // cause.
    static constexpr int kMaxStrangers = 128;
    // Beyond this many bytes that all strangers together make us hold (unread bytes, incomplete
    // messages, answers that they do not take), the stranger that holds most is dropped.
    static constexpr qint64 kMaxStrangersBytes = 4 * qint64{kMaxPayload};

    // Phones that are trusted; whoever has the token can say hello with any number of ids. Beyond
    // this the one that has not said hello for longest is trusted no more.
    static constexpr qsizetype kMaxTrusted = 256;

    explicit PhoneServer(const PhoneServerTimings& timings = {}, QObject* parent = nullptr);
    ~PhoneServer() override;

    // Listens on all interfaces, IPv4 and IPv6; port 0 takes any free one. False, and nothing
    // changes but a line in the log, when that is not possible.
    [[nodiscard]] bool listen(quint16 port);

    // The port bound, 0 before a successful listen().
    [[nodiscard]] quint16 port() const { return m_port; }

    // Adopts a connected tunnel to a phone on USB and greets the phone. Takes ownership.
    void addUsbSocket(QTcpSocket* socket);

    // Tells the handshaken phone of that session to stream or to hold. Does nothing when there is
    // no such phone.
    void setActive(int id, bool active);

    // The token that unknown phones must present; empty, as it is at first, means that none is
    // required: only phones on a cable can come before the program listens.
    void setToken(const QString& token) { m_token = token; }
    // The name that USB phones are told.
    void setPcName(const QString& name) { m_pcName = name; }
    // The trusted phones, device id to the token that the phone was trusted with. They are kept
    // here alone: who stores them sets them once and takes them again after devicePaired().
    void setTrusted(const QHash<QString, QString>& trusted) { m_trusted = trusted; }
    [[nodiscard]] const QHash<QString, QString>& trusted() const { return m_trusted; }
    void clearTrusted()
    {
        m_trusted.clear();
        m_lastUse.clear();
    }

    // Video frame messages received, all phones together, the ones too short to use included.
    [[nodiscard]] qint64 framesReceived() const { return m_framesReceived; }

Q_SIGNALS:
    // A hello was accepted and answered. A phone may say hello again with the same id.
    void phoneConnected(int id, const QString& deviceId, const QString& name, const QString& model,
                        const QString& os, bool usb);
    // A phone that had been connected is gone.
    void phoneDisconnected(int id);
    // A small JPEG of what the phone sees. Nothing in the program listens yet.
    void thumbnail(int id, const QByteArray& jpeg);
    // A phone proved the current pairing token and is trusted with it from now on.
    void devicePaired(const QString& deviceId, const QString& token);
    // The phone at the end of a USB tunnel says goodbye; its connection is closed after this.
    void usbByeReceived(QTcpSocket* socket);
    // Media is passed on from any connection, also before its hello.
    void streamInfo(int id, int width, int height, int fps);
    void videoConfig(int id, const QByteArray& annexbSpsPps);
    void videoFrame(int id, const QByteArray& annexbAccessUnit, qint64 ptsUsec, bool keyframe);

private:
    void onNewConnection();
    PhoneConnection* adopt(QTcpSocket* socket, bool usb);
    void limitStrangers();
    void limitStrangersBytes();
    void serveStrangers();

    void onMessage(PhoneConnection& from, const Message& message) override;
    void onTurnWanted(PhoneConnection& stranger) override;
    void onEnded(PhoneConnection& connection) override;

    void passOnVideoFrame(int id, const Message& message);
    void handleHello(PhoneConnection& from, const Hello& hello);
    [[nodiscard]] bool admit(PhoneConnection& newcomer, const Hello& hello);
    void forgetUnusedPhone();
    [[nodiscard]] bool settleDuplicates(PhoneConnection& newcomer, const QString& deviceId);
    static void refuse(PhoneConnection& connection, Refusal refusal);

    void keepAlive();
    void onAcceptError();

    PhoneServerTimings m_timings;
    QTcpServer m_server;
    std::map<int, PhoneConnection*> m_connections; // by id, the oldest first; children of this
    std::deque<int> m_strangerTurns; // ids of those with bytes to read, first come, first served
    QTimer m_strangersTimer;
    quint16 m_port = 0;
    qint64 m_framesReceived = 0;
    int m_nextId = 1;
    QString m_token;
    QString m_pcName;
    QHash<QString, QString> m_trusted; // device id to token
    QHash<QString, qint64> m_lastUse;  // of those that said hello since the start: m_uses then
    qint64 m_uses = 0;
    QTimer m_pingTimer;
    QElapsedTimer m_clock;
    qint64 m_lastKeepAliveMs = 0; // on m_clock
    LogLimiter m_acceptErrors;
};

} // namespace pevrix
