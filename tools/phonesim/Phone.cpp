#include "tools/phonesim/Phone.h"

#include "tools/phonesim/Malformed.h"
#include "tools/phonesim/Thumbnail.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

#include <utility>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kHelloLimit = 10s; // for the answer to the hello
constexpr auto kLeaveLimit = 5s;  // for the PC to close after the phone did
// The PC drops a silent phone after about five seconds; a debugged or loaded one takes longer.
constexpr auto kVanishLimit = 30s;

QJsonObject parseObject(const QByteArray& payload)
{
    return QJsonDocument::fromJson(payload).object();
}

} // namespace

Phone::Phone(Setup setup, QTcpSocket* socket, RunStats& stats, QIODevice* dump, QObject* parent)
    : QObject(parent)
    , m_identity(std::move(setup.identity))
    , m_token(std::move(setup.token))
    , m_plan(setup.plan)
    , m_ignoreActive(setup.video.ignoreActive)
    , m_stats(stats)
    , m_link(socket, stats, dump)
    , m_streamer(std::move(setup.source), setup.video, m_link, stats)
{
    m_deadline.setSingleShot(true);
    connect(&m_link, &PhoneLink::received, this, &Phone::dispatch);
    connect(&m_link, &PhoneLink::closed, this, &Phone::onClosed);
    connect(&m_streamer, &VideoStreamer::frameSent, this, &Phone::onFrameSent);
    connect(&m_streamer, &VideoStreamer::failed, this,
            [this](const QString& reason) { finish(ExitCode::VideoTrouble, reason); });
    connect(&m_thumbnailTimer, &QTimer::timeout, this, &Phone::sendThumbnail);
}

QByteArray Phone::helloPayload() const
{
    return QJsonDocument(QJsonObject{{QStringLiteral("v"), kProtocolVersion},
                                     {QStringLiteral("token"), m_token.value_or(QString())},
                                     {QStringLiteral("deviceId"), m_identity.deviceId},
                                     {QStringLiteral("name"), m_identity.name},
                                     {QStringLiteral("modelName"), m_identity.model},
                                     {QStringLiteral("osVersion"), m_identity.os}})
        .toJson(QJsonDocument::Compact);
}

void Phone::start()
{
    m_stats.state = PhoneState::Greeting;
    if (m_token) {
        greet();
    } else {
        finishBy(kHelloLimit, ExitCode::CannotConnect,
                 QStringLiteral("the PC did not say hello through the tunnel"));
    }
}

void Phone::takeUsbHello(const QByteArray& payload)
{
    if (!m_token) {
        m_token = parseObject(payload)[u"token"].toString();
        greet();
    }
}

void Phone::greet()
{
    finishBy(kHelloLimit, ExitCode::CannotConnect,
             QStringLiteral("the PC did not answer the hello"));
    const MalformedKind* kind = findMalformed(m_plan.malformed);
    if (kind && kind->insteadOfHello) {
        sendMalformed({}, 0);
    } else {
        m_link.send(MessageType::Hello, helloPayload());
    }
}

void Phone::dispatch(const Message& message)
{
    switch (message.type) {
    case MessageType::UsbHello:
        takeUsbHello(message.payload);
        break;
    case MessageType::HelloReply:
        accept();
        break;
    case MessageType::Error:
        refuse(message.payload);
        break;
    case MessageType::Active:
        if (m_accepted) {
            setActive(parseObject(message.payload)[u"active"].toBool());
        }
        break;
    case MessageType::StartRequest:
        ++m_stats.starts;
        m_streamer.restart();
        break;
    case MessageType::Ping:
        m_link.send(MessageType::Pong, message.payload);
        ++m_stats.pings;
        break;
    default:
        break;
    }
}

void Phone::accept()
{
    if (std::exchange(m_accepted, true)) {
        return; // the answer to a second hello
    }
    m_deadline.stop();
    ++m_stats.accepted;
    Q_EMIT event(QStringLiteral("accepted"));
    Q_EMIT accepted();
    if (m_plan.thumbnailInterval) {
        sendThumbnail();
        m_thumbnailTimer.start(*m_plan.thumbnailInterval);
    }
    startPlan();
    setActive(false);
}

void Phone::startPlan()
{
    if (m_plan.leaveAfter) {
        QTimer::singleShot(*m_plan.leaveAfter, Qt::PreciseTimer, this, &Phone::leave);
    }
    if (m_plan.resizeAfter) {
        QTimer::singleShot(*m_plan.resizeAfter, Qt::PreciseTimer, this, [this] {
            Q_EMIT event(QStringLiteral("new size"));
            m_streamer.resize(m_plan.resizeTo);
        });
    }
    if (m_plan.stallAfter) {
        QTimer::singleShot(*m_plan.stallAfter, Qt::PreciseTimer, this,
                           [this] { setStalled(true); });
    }
    if (m_plan.stallAfter && m_plan.stallFor) {
        QTimer::singleShot(*m_plan.stallAfter + *m_plan.stallFor, Qt::PreciseTimer, this,
                           [this] { setStalled(false); });
    }
}

void Phone::setStalled(bool stalled)
{
    Q_EMIT event(stalled ? QStringLiteral("video stalled") : QStringLiteral("video resumed"));
    m_stalled = stalled;
    m_streamer.setStalled(stalled);
    showState();
}

void Phone::setActive(bool active)
{
    if (active != m_active) {
        Q_EMIT event(active ? QStringLiteral("the PC wants video")
                            : QStringLiteral("the PC wants no video"));
    }
    m_active = active;
    m_streamer.setActive(wantsVideo());
    showState();
}

void Phone::showState()
{
    if (!m_leaving && !m_link.isSilent()) {
        m_stats.state = m_stalled      ? PhoneState::Stalled
                        : wantsVideo() ? PhoneState::Streaming
                                       : PhoneState::Holding;
    }
}

void Phone::sendThumbnail()
{
    const QByteArray jpeg = makeThumbnail(m_streamer.description(), m_streamer.framesSent());
    if (!jpeg.isEmpty()) {
        m_link.send(MessageType::Thumbnail, jpeg);
        ++m_stats.thumbnails;
    }
}

void Phone::onFrameSent(QByteArrayView accessUnit, qint64 ptsUsec)
{
    if (m_streamer.framesSent() % kMalformedEveryFrames == 0) {
        const MalformedKind* kind = findMalformed(m_plan.malformed);
        if (kind && !kind->insteadOfHello) {
            sendMalformed(accessUnit, ptsUsec);
        }
    }
    if (m_plan.frames && m_streamer.framesSent() >= *m_plan.frames) {
        leave();
    }
}

void Phone::sendMalformed(QByteArrayView accessUnit, qint64 ptsUsec)
{
    m_link.sendMalformed(malformedBytes(m_plan.malformed, helloPayload(), accessUnit, ptsUsec));
    if (findMalformed(m_plan.malformed)->silentAfterwards) {
        m_streamer.stop();
        m_link.fallSilent();
        m_stats.state = PhoneState::Silent;
    }
}

void Phone::leave()
{
    if (std::exchange(m_leaving, true)) {
        return;
    }
    m_streamer.stop();
    m_thumbnailTimer.stop();
    m_stats.state = PhoneState::Leaving;
    Q_EMIT event(QStringLiteral("leaving"));
    switch (m_plan.leave) {
    case LeaveMode::Close:
        m_link.finish();
        finishBy(kLeaveLimit, ExitCode::Lost, QStringLiteral("the PC did not close its side"));
        break;
    case LeaveMode::Bye:
        m_link.send(MessageType::Bye);
        finishBy(kLeaveLimit, ExitCode::Lost, QStringLiteral("the PC did not close after the bye"));
        break;
    case LeaveMode::Reset:
        m_link.reset();
        break;
    case LeaveMode::Vanish:
        m_link.fallSilent();
        m_stats.state = PhoneState::Silent;
        finishBy(kVanishLimit, ExitCode::Lost,
                 QStringLiteral("the PC did not drop the silent phone"));
        break;
    }
}

void Phone::refuse(const QByteArray& payload)
{
    const QJsonObject error = parseObject(payload);
    finish(ExitCode::Refused,
           QStringLiteral("%1: %2").arg(error[u"code"].toString(), error[u"message"].toString()));
}

void Phone::onClosed()
{
    if (m_leaving) {
        finish(ExitCode::Done, {});
    } else {
        finish(ExitCode::Lost,
               QStringLiteral("the connection was closed by the PC or the network"));
    }
}

void Phone::finishBy(std::chrono::milliseconds limit, ExitCode code, const QString& reason)
{
    m_deadline.disconnect(this);
    connect(&m_deadline, &QTimer::timeout, this, [this, code, reason] { finish(code, reason); });
    m_deadline.start(limit);
}

void Phone::finish(ExitCode code, const QString& reason)
{
    if (std::exchange(m_finished, true)) {
        return;
    }
    m_deadline.stop();
    m_thumbnailTimer.stop();
    m_streamer.stop();
    Q_EMIT finished(code, reason);
}

} // namespace pevrix
