#pragma once

#include "tools/phonesim/FramePacer.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/PhoneLink.h"
#include "tools/phonesim/VideoSource.h"

#include <QChronoTimer>
#include <QObject>

#include <cstdint>
#include <memory>
#include <vector>

namespace pevrix {

/// Sends the frames of a source over a link in time, while the PC wants them. Every start, be it
/// after holding, a stall, a start request or a change of size, begins with the stream info, the
/// parameter sets and a keyframe. The stream's clock begins with the first frame and goes on while
/// the video is held, so timestamps show the gap.
class VideoStreamer final : public QObject
{
    Q_OBJECT

public:
    /// The link and the stats must outlive the streamer.
    VideoStreamer(std::unique_ptr<VideoSource> source, const VideoOptions& options, PhoneLink& link,
                  RunStats& stats, QObject* parent = nullptr);

    /// Whether the PC wants video.
    void setActive(bool active);
    void setStalled(bool stalled);
    /// Begins again with the next frame, if video is being sent.
    void restart();
    /// Changes the size in mid-stream.
    void resize(QSize size);
    /// Ends the video for good.
    void stop();

    /// Frames sent by this streamer.
    [[nodiscard]] qint64 framesSent() const { return m_framesSent; }
    [[nodiscard]] StreamDescription description() const { return m_source->description(); }

Q_SIGNALS:
    /// After a frame was sent. The access unit is valid during the call.
    void frameSent(QByteArrayView accessUnit, qint64 ptsUsec);
    void failed(const QString& reason);

private:
    [[nodiscard]] bool isSending() const { return m_active && !m_stalled && !m_stopped; }
    void update();
    void schedule();
    void tick();
    bool mayProceed();
    void sendFrame();
    void announce(const AccessUnit& unit);

    std::unique_ptr<VideoSource> m_source;
    const bool m_unpaced;
    PhoneLink& m_link;
    RunStats& m_stats;
    FramePacer m_pacer;
    QChronoTimer m_timer;
    bool m_active = false;
    bool m_stalled = false;
    bool m_stopped = false;
    bool m_announce = true; // the next frame begins a stream
    bool m_waitsForLink = false;
    std::vector<std::uint8_t> m_config; // the parameter sets sent last
    qint64 m_framesSent = 0;
};

} // namespace pevrix
