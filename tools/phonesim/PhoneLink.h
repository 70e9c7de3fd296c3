#pragma once

#include "phone/MessageSplitter.h"
#include "phone/Protocol.h"
#include "tools/phonesim/RunStats.h"
#include "tools/phonesim/VideoSource.h"

#include <QObject>
#include <QTcpSocket>

#include <span>

class QIODevice;

namespace pevrix {

/// One connected socket as a stream of protocol messages, with the counting. It does not care how
/// the connection came about. Takes the socket over as its child.
class PhoneLink final : public QObject
{
    Q_OBJECT

public:
    /// The video is held back while more than this waits to be sent: about five seconds of a phone
    /// at the usual bit rate.
    static constexpr qint64 kMaxPendingBytes = qint64{4} * 1024 * 1024;

    /// `dump`, when there is one, gets every H.264 byte that is sent. `stats` and `dump` must
    /// outlive the link.
    PhoneLink(QTcpSocket* socket, RunStats& stats, QIODevice* dump, QObject* parent = nullptr);

    void send(MessageType type, QByteArrayView payload = {});
    void sendConfig(std::span<const std::uint8_t> parameterSets);
    void sendFrame(const AccessUnit& unit, qint64 ptsUsec);
    void sendMalformed(const QByteArray& bytes);

    /// From now on nothing is sent and what arrives is thrown away, but the socket stays open.
    void fallSilent() { m_silent = true; }

    [[nodiscard]] bool isSilent() const { return m_silent; }
    [[nodiscard]] bool isCongested() const;

    /// Sends what still waits, then closes the sending direction, so that the PC gets all of it
    /// whatever it has sent itself meanwhile. closed() follows when the PC closes too.
    void finish();

    /// Tears the connection down at once with a TCP reset. closed() follows.
    void reset();

Q_SIGNALS:
    void received(pevrix::Message message);
    void sentSome(); ///< congestion may be over
    void closed();   ///< once, whichever side it was

private:
    void write(const char* bytes, qsizetype count);
    void readAll();
    void shutDownWhenSent();

    QTcpSocket* m_socket;
    RunStats& m_stats;
    QIODevice* m_dump;
    MessageSplitter m_splitter;
    bool m_silent = false;
    bool m_finishing = false;
};

} // namespace pevrix
