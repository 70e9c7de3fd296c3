#pragma once

#include "phone/MessageSplitter.h"
#include "phone/Protocol.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>

#include <chrono>
#include <optional>

namespace pevrix {

// One connection to a phone, or to what may become one: owns the socket, cuts what arrives into
// messages, and bounds what the peer can make us hold and how long it keeps the thread busy.
//
// Lives on the thread of its Host and calls it there. Its states:
//
//     adopted --accept()--> handshaken --+
//        |                               +--close(), drop()--> closing --> ended
//        +-------------------------------+
//
// When the peer ends the connection it goes to "ended" without passing through "closing", and what
// had been sent before is still reported. Then the connection deletes itself, from the event loop.
class PhoneConnection : public QObject
{
public:
    enum class State
    {
        Adopted,
        Handshaken,
        Closing, // we end it: nothing that still arrives is looked at
        Ended,
    };

    // What hears of a connection. May call anything of it, also end it, from within these.
    class Host
    {
    public:
        virtual void onMessage(PhoneConnection& from, const Message& message) = 0;
        // It has read what there was, or as much as one turn allows.
        virtual void onTurnTaken(PhoneConnection& connection) = 0;
        // The last call for this connection, and once only.
        virtual void onEnded(PhoneConnection& connection) = 0;

    protected:
        ~Host() = default;
    };

    // Adopts and owns a connected socket. Of a connection that we close, the peer has closeGrace
    // to accept what it was sent before.
    PhoneConnection(int id, QTcpSocket* socket, bool usb, std::chrono::milliseconds closeGrace,
                    Host& host, QObject* parent = nullptr);
    ~PhoneConnection() override;

    [[nodiscard]] int id() const { return m_id; }
    [[nodiscard]] bool usb() const { return m_usb; } // a USB tunnel, otherwise from the network
    [[nodiscard]] QTcpSocket* socket() const { return m_socket; }
    // Neither closing nor ended.
    [[nodiscard]] bool open() const { return m_state < State::Closing; }
    [[nodiscard]] bool handshaken() const { return m_state == State::Handshaken; }
    // Anybody may connect from the network; nobody knows them before an accepted hello.
    [[nodiscard]] bool stranger() const { return m_state == State::Adopted && !m_usb; }
    // The hello accepted last; stays when the connection closes.
    [[nodiscard]] const std::optional<Hello>& hello() const { return m_hello; }

    // The peer leaves so much of what it was sent that its own messages wait.
    [[nodiscard]] bool backlogged() const;
    // Since the last sign of life: received bytes or, of a backlogged peer, bytes taken.
    [[nodiscard]] std::chrono::milliseconds silence() const;
    // The memory of messages that have not come in whole.
    [[nodiscard]] qint64 heldBytes() const { return m_splitter.heldBytes(); }

    // An open connection becomes a phone's, or is told so again.
    void accept(const Hello& hello);
    // Sends a message, with flags 0. Nothing, unless the connection is open.
    void send(MessageType type, const QByteArray& payload);
    // Ends an open connection: after what was sent before, or at once.
    void close();
    void drop();

private:
    enum class Turn
    {
        None,
        Queued,  // waits in the event loop
        Running, // its messages are being reported, further up the call stack
    };

    void takeTurn();
    [[nodiscard]] bool readMessages(bool untilEmpty);
    [[nodiscard]] MessageSplitter::Result readMessage(qint64 nowMs);
    void queueTurn();
    void onBytesWritten(qint64 count);
    void onDisconnected();

    const int m_id;
    const bool m_usb;
    const std::chrono::milliseconds m_closeGrace;
    Host& m_host;
    QTcpSocket* const m_socket; // a child of this
    MessageSplitter m_splitter;
    State m_state = State::Adopted;
    Turn m_turn = Turn::None;
    std::optional<Hello> m_hello;
    QElapsedTimer m_clock;
    qint64 m_lastSignMs = 0; // of life, on m_clock
};

} // namespace pevrix
