#include "tools/phonesim/VideoStreamer.h"

#include "tools/phonesim/AnnexB.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace pevrix {

namespace {

FramePacer::Time now()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

QByteArray streamInfoPayload(const StreamDescription& stream)
{
    return QJsonDocument(QJsonObject{{QStringLiteral("width"), stream.width},
                                     {QStringLiteral("height"), stream.height},
                                     {QStringLiteral("fps"), stream.fps}})
        .toJson(QJsonDocument::Compact);
}

} // namespace

VideoStreamer::VideoStreamer(std::unique_ptr<VideoSource> source, const VideoOptions& options,
                             PhoneLink& link, RunStats& stats, QObject* parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_unpaced(options.unpaced)
    , m_link(link)
    , m_stats(stats)
    , m_pacer(m_source->description().fps)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QChronoTimer::timeout, this, &VideoStreamer::tick);
    connect(&link, &PhoneLink::sentSome, this, [this] {
        if (m_waitsForLink && !m_link.isCongested()) {
            m_waitsForLink = false;
            schedule();
        }
    });
}

void VideoStreamer::setActive(bool active)
{
    m_active = active;
    update();
}

void VideoStreamer::setStalled(bool stalled)
{
    m_stalled = stalled;
    update();
}

void VideoStreamer::stop()
{
    m_stopped = true;
    update();
}

void VideoStreamer::restart()
{
    m_announce = true;
}

void VideoStreamer::resize(QSize size)
{
    if (m_source->resize(size.width(), size.height())) {
        m_announce = true;
    }
}

// Starts or stops the clockwork when the reasons for it have changed.
void VideoStreamer::update()
{
    if (!isSending()) {
        m_timer.stop();
        m_waitsForLink = false;
        m_announce = true;
        return;
    }
    if (m_timer.isActive() || m_waitsForLink) {
        return;
    }
    if (!m_pacer.running()) {
        m_pacer.begin(now());
    } else if (!m_unpaced) {
        m_pacer.skipTo(now()); // the time that was held passes on the stream's clock too
    }
    schedule();
}

void VideoStreamer::schedule()
{
    if (isSending()) {
        const auto wait = m_unpaced ? FramePacer::Time{} : m_pacer.due() - now();
        m_timer.setInterval(std::max(wait, FramePacer::Time{}));
        m_timer.start();
    }
}

void VideoStreamer::tick()
{
    if (mayProceed()) {
        sendFrame();
    }
    if (!m_waitsForLink) {
        schedule();
    }
}

// A PC that does not take the data holds an unpaced stream up, and costs a paced one frames.
bool VideoStreamer::mayProceed()
{
    if (m_unpaced) {
        m_waitsForLink = m_link.isCongested();
        return !m_waitsForLink;
    }
    m_stats.dropped += m_pacer.skipLate(now());
    if (m_link.isCongested()) {
        m_pacer.take();
        ++m_stats.dropped;
        return false;
    }
    return true;
}

void VideoStreamer::sendFrame()
{
    const std::int64_t number = m_pacer.take();
    const auto unit = m_source->next(number, m_announce);
    if (!unit) {
        stop();
        Q_EMIT failed(m_source->errorText());
        return;
    }
    announce(*unit);
    const qint64 ptsUsec = m_pacer.timestamp(number).count();
    m_link.sendFrame(*unit, ptsUsec);
    ++m_framesSent;
    Q_EMIT frameSent({unit->bytes.data(), std::ssize(unit->bytes)}, ptsUsec);
}

// What goes before a frame: at a start the description and the parameter sets, and later on the
// parameter sets whenever they change.
void VideoStreamer::announce(const AccessUnit& unit)
{
    if (m_announce) {
        m_link.send(MessageType::StreamInfo, streamInfoPayload(m_source->description()));
        ++m_stats.streamInfos;
        m_config.clear();
    }
    m_announce = false;
    if (unit.keyframe) {
        auto sets = parameterSets(unit.bytes);
        if (!sets.empty() && sets != m_config) {
            m_link.sendConfig(sets);
            m_config = std::move(sets);
        }
    }
}

} // namespace pevrix
