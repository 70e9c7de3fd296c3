#pragma once

#include "tools/phonesim/Pattern.h"
#include "tools/phonesim/VideoSource.h"
#include "video/FFmpegHandles.h"

#include <QString>

#include <optional>

namespace pevrix {

/// A live H.264 encoder such as a phone has: baseline profile, no delay, one slice a picture,
/// constant bit rate, parameter sets in every keyframe. Runs on the caller's thread alone, so the
/// same pictures always give the same bytes. Failures leave a reason in errorText().
class H264Encoder
{
public:
    struct Settings
    {
        int width = 0; ///< even
        int height = 0;
        int fps = 0;
        int bitrateKbps = 0;
        int keyframeInterval = 0; ///< at most so many frames from keyframe to keyframe
    };

    /// Begins a new stream; an earlier one ends.
    [[nodiscard]] bool open(const Settings& settings);
    [[nodiscard]] bool isOpen() const { return m_context != nullptr; }

    /// The picture to draw into before the next encode(). Nothing when memory runs out.
    [[nodiscard]] std::optional<PictureView> picture();

    /// Encodes picture(). The result stays valid until the next call.
    [[nodiscard]] std::optional<AccessUnit> encode(bool keyframe);

    [[nodiscard]] QString errorText() const { return m_error; }

private:
    bool fail(const char* step, int code);

    CodecContextHandle m_context;
    FrameHandle m_frame;
    PacketHandle m_packet;
    std::int64_t m_encoded = 0;
    QString m_error;
};

} // namespace pevrix
