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
// When the peer ends the connection it goes to "ended" without passing through "closing", once what
// had been sent before is reported. Then the connection deletes itself, from the event loop.
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

    // Is told what happens on a connection. From within these calls it may call any function of the
    // connection, and may end it.
    class Host
    {
    public:
        virtual void onMessage(PhoneConnection& from, const Message& message) = 0;
        // Bytes of a stranger wait. It reads them once the host calls takeTurn(), soon but not from
        // within this.
        virtual void onTurnWanted(PhoneConnection& stranger) = 0;
        // The last call for this connection, and once only.
        virtual void onEnded(PhoneConnection& connection) = 0;

    protected:
        ~Host() = default;
    };

    // Adopts and owns a connected socket. When we close the connection, the peer has `closeGrace`
    // to take what it was sent before.
    PhoneConnection(int id, QTcpSocket* socket, bool usb, std::chrono::milliseconds closeGrace,
                    Host& host, QObject* parent = nullptr);
    ~PhoneConnection() override;

    [[nodiscard]] int id() const { return m_id; }
    [[nodiscard]] bool usb() const { return m_usb; } // a USB tunnel, otherwise from the network
    [[nodiscard]] QTcpSocket* socket() const { return m_socket; }
    // Neither closing nor ended.
    [[nodiscard]] bool open() const { return m_state < State::Closing; }
    [[nodiscard]] bool handshaken() const { return m_state == State::Handshaken; }
    // Anybody may connect from the network. Who has not said an accepted hello is a stranger, even
    // while the connection is being closed.
    [[nodiscard]] bool stranger() const { return !m_usb && !m_hello && m_state != State::Ended; }
    // The hello accepted last; stays when the connection closes.
    [[nodiscard]] const std::optional<Hello>& hello() const { return m_hello; }

    // The peer has taken so little of what it was sent that its own messages have to wait.
    [[nodiscard]] bool backlogged() const;
    // Since the last sign of life: received bytes or, of a backlogged peer, bytes taken.
    [[nodiscard]] std::chrono::milliseconds silence() const;
    // What the peer makes us hold: unread bytes, the message that is coming in, untaken answers.
    [[nodiscard]] qint64 heldBytes() const;

    // Reads and reports messages for a few milliseconds, of a stranger for a fraction of one. When
    // more wait it takes another turn later, or asks its host for it.
    void takeTurn();

    // An open connection becomes a phone's, or is told so again.
    void accept(const Hello& hello);
    // Sends a message, with flags 0. Nothing, unless the connection is open.
    void send(MessageType type, const QByteArray& payload);
    // Ends an open connection after what was sent before.
    void close();
    // Ends it at once, also one that is closing.
    void drop();

private:
    enum class Turn
    {
        None,
        Queued,  // waits in the event loop or, a stranger's, with the host
        Running, // its messages are being reported, further up the call stack
    };

    void onReadyRead();
    void wantTurn();
    // True when it stopped only because the turn was over.
    [[nodiscard]] bool readMessages();
    [[nodiscard]] qint64 maxBacklog() const;
    [[nodiscard]] MessageSplitter::Result readMessage(QElapsedTimer::Duration now);
    void onBytesWritten(qint64 count);
    void onDisconnected();
    void endWhenOver();

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
    QElapsedTimer::Duration m_lastSign{}; // of life, on m_clock
};

} // namespace pevrix
