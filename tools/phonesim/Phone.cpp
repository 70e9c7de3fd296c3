#include "tools/phonesim/Phone.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kThumbnailInterval = 5s;
constexpr auto kLeaveLimit = 5s; // for the PC to close after the goodbye
// A frame that would be sent later than this is given up, as a camera does, in place of a burst.
constexpr auto kMaxLate = 500ms;
// Frames are given up while more than this waits to be sent: about five seconds of a phone's video.
constexpr qint64 kMaxPendingBytes = 4'000'000;

QByteArray json(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QJsonObject parsed(const Message& message)
{
    return QJsonDocument::fromJson(message.payload).object();
}

} // namespace

Phone::Phone(std::unique_ptr<VideoSource> source, PhoneIdentity identity, double framesPerSecond,
             QObject* parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_identity(std::move(identity))
    , m_framesPerSecond(framesPerSecond > 0 ? framesPerSecond : m_source->description().fps)
{
    m_frameTimer.setSingleShot(true);
    m_frameTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_frameTimer, &QChronoTimer::timeout, this, &Phone::tick);
    connect(&m_thumbnailTimer, &QTimer::timeout, this, &Phone::sendThumbnail);
}

void Phone::connectTo(const QString& host, quint16 port, const QString& token)
{
    m_token = token;
    adopt(new QTcpSocket);
    connect(m_socket, &QTcpSocket::connected, this, &Phone::greet);
    m_socket->connectToHost(host, port);
}

void Phone::takeTunnel(QTcpSocket* socket)
{
    adopt(socket);
    // What arrived before the socket came here is not announced again.
    QMetaObject::invokeMethod(this, &Phone::readAll, Qt::QueuedConnection);
}

void Phone::adopt(QTcpSocket* socket)
{
    m_socket = socket;
    socket->setParent(this);
    const auto end = [this] {
        enter(State::Over);
    };
    connect(socket, &QTcpSocket::readyRead, this, &Phone::readAll);
    connect(socket, &QTcpSocket::errorOccurred, this, end);
    connect(socket, &QTcpSocket::disconnected, this, end);
}

void Phone::greet()
{
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    send(buildMessage(MessageType::Hello, json({{u"v"_s, kProtocolVersion},
                                                {u"token"_s, m_token},
                                                {u"deviceId"_s, m_identity.deviceId},
                                                {u"name"_s, m_identity.name},
                                                {u"modelName"_s, m_identity.model},
                                                {u"osVersion"_s, m_identity.os}})));
    enter(State::Greeting);
}

void Phone::readAll()
{
    while (m_state != State::Over && m_socket->bytesAvailable() > 0) {
        const std::span<char> target = m_splitter.writable();
        const qint64 count = m_socket->read(target.data(), std::ssize(target));
        if (count <= 0) {
            return;
        }
        if (m_splitter.commit(count) == MessageSplitter::Result::Message) {
            const Message message = m_splitter.take();
            obey(message);
            Q_EMIT received(message);
        }
    }
}

void Phone::obey(const Message& message)
{
    switch (message.type) {
    case MessageType::UsbHello:
        m_token = parsed(message)[u"token"_s].toString();
        greet();
        break;
    case MessageType::HelloReply:
        enter(State::Holding);
        sendThumbnail();
        m_thumbnailTimer.start(kThumbnailInterval);
        break;
    case MessageType::Error:
        m_refusal = parsed(message)[u"code"_s].toString() + u": "_s +
                    parsed(message)[u"message"_s].toString();
        break;
    case MessageType::Active:
        enter(parsed(message)[u"active"_s].toBool() ? State::Streaming : State::Holding);
        break;
    case MessageType::StartRequest:
        m_announce = true;
        break;
    case MessageType::Ping:
        send(buildMessage(MessageType::Pong, message.payload));
        break;
    default:
        break;
    }
}

void Phone::enter(State state)
{
    if (m_state == State::Over || m_state == state) {
        return;
    }
    m_state = state;
    if (state == State::Over) {
        m_thumbnailTimer.stop();
    }
    updateVideo();
    Q_EMIT stateChanged();
}

void Phone::send(const QByteArray& bytes)
{
    m_socket->write(bytes);
}

void Phone::sendThumbnail()
{
    if (const QByteArray jpeg = m_source->thumbnail(); !jpeg.isEmpty()) {
        send(buildMessage(MessageType::Thumbnail, jpeg));
    }
}

void Phone::setStalled(bool stalled)
{
    m_stalled = stalled;
    updateVideo();
}

void Phone::resize(QSize size)
{
    m_announce = m_source->resize(size) || m_announce;
}

void Phone::leave()
{
    if (m_state == State::Connecting || m_state == State::Over) {
        cutOff();
        return;
    }
    m_leaving = true;
    updateVideo();
    m_thumbnailTimer.stop();
    send(buildMessage(MessageType::Bye));
    QTimer::singleShot(kLeaveLimit, this, &Phone::cutOff);
}

void Phone::cutOff()
{
    if (m_socket) {
        m_socket->abort();
    }
    enter(State::Over);
}

// Starts or stops the clockwork when the reasons for it have changed.
void Phone::updateVideo()
{
    if (m_state != State::Streaming || m_stalled || m_leaving) {
        m_frameTimer.stop();
        m_announce = true;
    } else if (!m_frameTimer.isActive()) {
        if (!m_streamClock.isValid()) {
            m_streamClock.start();
        }
        skipTo(m_streamClock.durationElapsed());
        schedule();
    }
}

// Frame n is due exactly n / fps seconds after frame 0, however late those before it were.
std::chrono::nanoseconds Phone::dueTime(qint64 frame) const
{
    return std::chrono::nanoseconds(
        std::llround(static_cast<double>(frame) * 1e9 / m_framesPerSecond));
}

void Phone::skipTo(std::chrono::nanoseconds time)
{
    while (dueTime(m_nextFrame) < time) {
        ++m_nextFrame;
    }
}

void Phone::schedule()
{
    const auto wait = dueTime(m_nextFrame) - m_streamClock.durationElapsed();
    m_frameTimer.setInterval(std::max(wait, 0ns));
    m_frameTimer.start();
}

void Phone::tick()
{
    const qint64 wanted = m_nextFrame;
    const auto now = m_streamClock.durationElapsed();
    if (now - dueTime(wanted) > kMaxLate) {
        skipTo(now);
    }
    m_framesDropped += m_nextFrame - wanted;
    if (m_socket->bytesToWrite() > kMaxPendingBytes) {
        ++m_framesDropped;
    } else {
        sendFrame();
    }
    ++m_nextFrame;
    if (m_state == State::Streaming && !m_stalled && !m_leaving) {
        schedule();
    }
}

void Phone::sendFrame()
{
    const auto unit = m_source->next(m_nextFrame, m_announce);
    if (!unit) {
        cutOff();
        return;
    }
    announce(*unit);
    const QByteArrayView bytes(unit->bytes.data(), std::ssize(unit->bytes));
    const auto pts = std::chrono::duration_cast<std::chrono::microseconds>(dueTime(m_nextFrame));
    const auto head = encodeVideoFrameHeader(pts.count(), unit->keyframe, bytes.size());
    m_socket->write(head.data(), std::ssize(head));
    m_socket->write(bytes.data(), bytes.size());
    m_socket->flush();
    ++m_framesSent;
    Q_EMIT frameSent(bytes);
}

// What goes before a frame: at a start the description and the parameter sets, and later on the
// parameter sets whenever they change.
void Phone::announce(const AccessUnit& unit)
{
    if (std::exchange(m_announce, false)) {
        const StreamDescription stream = m_source->description();
        send(buildMessage(MessageType::StreamInfo, json({{u"width"_s, stream.width},
                                                         {u"height"_s, stream.height},
                                                         {u"fps"_s, stream.fps}})));
        m_config.clear();
    }
    const auto sets = parameterSets(unit.bytes);
    if (!sets.empty() && !std::ranges::equal(sets, m_config)) {
        m_config.assign(sets.begin(), sets.end());
        send(buildMessage(MessageType::VideoConfig, QByteArrayView(sets.data(), std::ssize(sets))));
    }
}

} // namespace pevrix
