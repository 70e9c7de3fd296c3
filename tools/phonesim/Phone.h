#pragma once

#include "phone/MessageSplitter.h"
#include "phone/Protocol.h"
#include "tools/phonesim/VideoSource.h"

#include <QChronoTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

namespace pevrix {

// What a phone says of itself.
struct PhoneIdentity
{
    QString deviceId = QStringLiteral("phonesim-1");
    QString name = QStringLiteral("Simulated phone");
    QString model = QStringLiteral("Phone Simulator");
    QString os = QStringLiteral("1.0");
};

// A simulated phone, for one connection: over the network or through a tunnel of the usbmux
// daemon. It greets, answers pings, sends thumbnails, and streams in time while the PC wants it.
// Every start of the video, be it after holding, a stall, a start request or a change of size,
// begins with the stream info, the parameter sets and a keyframe. The stream's clock begins with
// the first frame and goes on while the video is held. Lives on one thread with an event loop.
class Phone final : public QObject
{
    Q_OBJECT

public:
    // Connecting -> Greeting -> Holding <-> Streaming, and from each of them -> Over.
    enum class State
    {
        Connecting,
        Greeting, // connected, the hello is not answered yet
        Holding,  // accepted; the PC wants no video
        Streaming,
        Over, // there is no connection any more
    };

    // Unlike a source's own, `framesPerSecond` may be a fraction; 0 means the source's.
    explicit Phone(std::unique_ptr<VideoSource> source, PhoneIdentity identity = {},
                   double framesPerSecond = 0, QObject* parent = nullptr);

    // Once, and not with the other one.
    void connectTo(const QString& host, quint16 port, const QString& token);
    // The PC's connection to a phone on a cable; the PC says the token. Takes the socket over.
    void takeTunnel(QTcpSocket* socket);

    // Sends these bytes between two messages, whatever they are.
    void send(const QByteArray& bytes);
    // Holds the video back, or goes on with it. The rest of the connection stays alive.
    void setStalled(bool stalled);
    // Changes the size in mid-stream, if the source can.
    void resize(QSize size);
    // Says goodbye, so that the PC gets everything and then closes the connection.
    void leave();
    // Tears the connection down; what is on the way may get lost.
    void cutOff();

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isAccepted() const
    {
        return m_state == State::Holding || m_state == State::Streaming;
    }
    // What the PC refused the phone with, as "CODE: message"; empty when it did not.
    [[nodiscard]] QString refusal() const { return m_refusal; }
    [[nodiscard]] qint64 framesSent() const { return m_framesSent; }
    // Frames given up because this machine or the PC was too slow.
    [[nodiscard]] qint64 framesDropped() const { return m_framesDropped; }

Q_SIGNALS:
    void stateChanged();
    // Everything that the PC says, after the phone has acted on it.
    void received(const pevrix::Message& message);
    // The bytes of an access unit were written to the socket. Valid during the call.
    void frameSent(QByteArrayView accessUnit);

private:
    void adopt(QTcpSocket* socket);
    void greet();
    void readAll();
    void obey(const Message& message);
    void enter(State state);
    void sendThumbnail();
    void updateVideo();
    void schedule();
    void tick();
    void sendFrame();
    void announce(const AccessUnit& unit);
    [[nodiscard]] std::chrono::nanoseconds dueTime(qint64 frame) const;
    void skipTo(std::chrono::nanoseconds time);

    const std::unique_ptr<VideoSource> m_source;
    const PhoneIdentity m_identity;
    const double m_framesPerSecond;
    QString m_token;
    QTcpSocket* m_socket = nullptr;
    MessageSplitter m_splitter;
    State m_state = State::Connecting;
    QString m_refusal;
    bool m_stalled = false;
    bool m_leaving = false;
    bool m_announce = true; // the next frame begins a stream
    QTimer m_thumbnailTimer;
    QChronoTimer m_frameTimer;
    QElapsedTimer m_streamClock;
    qint64 m_nextFrame = 0;
    std::vector<std::uint8_t> m_config; // the parameter sets sent last
    qint64 m_framesSent = 0;
    qint64 m_framesDropped = 0;
};

} // namespace pevrix
