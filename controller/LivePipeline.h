#pragma once

#include "video/H264Decoder.h"

#include <QByteArrayView>
#include <QImage>
#include <QObject>

namespace pevrix {

/// The way of the active phone's video through the program: encoded bytes in, pictures out. Runs
/// on the GUI thread; a picture is delivered before the feed() that completed it returns.
class LivePipeline final : public QObject
{
    Q_OBJECT

public:
    explicit LivePipeline(QObject* parent = nullptr);

    /// Video of this size begins. A size that no decoder takes leaves the pipeline idle.
    void startStream(int width, int height);

    /// One access unit, or a blob of parameter sets with presentation time 0. Ignored when idle.
    void feed(QByteArrayView annexB, qint64 ptsUsec);

    /// The video has ended; a later startStream() begins anew.
    void goIdle();

    [[nodiscard]] bool isLive() const { return m_live; }
    [[nodiscard]] qint64 framesDecoded() const { return m_framesDecoded; }

Q_SIGNALS:
    /// A picture for the preview; the image owns its pixels.
    void frameReady(const QImage& image);

private:
    void onPicture(const std::uint8_t* pixels, int width, int height);

    H264Decoder m_decoder;
    bool m_live = false;
    bool m_firstFrameSeen = false;
    qint64 m_framesDecoded = 0;
};

} // namespace pevrix
