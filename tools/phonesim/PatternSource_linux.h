#pragma once

#include "tools/phonesim/VideoSource.h"
#include "video/FFmpegHandles.h"

#include <QImage>

namespace pevrix {

// A generated picture with the frame's number and a text, in which things move, from a live
// encoder such as a phone has: baseline profile, no delay, one slice a picture, constant bit rate,
// parameter sets in every keyframe. The encoder starts with the first frame. Needs a
// QGuiApplication.
class PatternSource final : public VideoSource
{
public:
    // Sides are even and within these limits.
    static constexpr int kMinSide = 64;
    static constexpr int kMaxSide = 4096;

    PatternSource(const StreamDescription& stream, QString text);

    [[nodiscard]] StreamDescription description() const override { return m_stream; }
    [[nodiscard]] std::optional<AccessUnit> next(qint64 number, bool wantKeyframe) override;
    [[nodiscard]] bool resize(QSize size) override;
    [[nodiscard]] QByteArray thumbnail() override;

private:
    [[nodiscard]] bool open();
    [[nodiscard]] QImage draw(qint64 number) const;

    StreamDescription m_stream;
    const QString m_text;
    QImage m_background;
    CodecContextHandle m_encoder; // null: the next frame opens a new stream
    FrameHandle m_frame;
    PacketHandle m_packet;
};

} // namespace pevrix
