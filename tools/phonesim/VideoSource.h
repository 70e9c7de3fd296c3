#pragma once

#include "phone/Protocol.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <span>

namespace pevrix {

/// One H.264 access unit in Annex-B form. The bytes belong to the source and stay valid until the
/// source is used again.
struct AccessUnit
{
    std::span<const std::uint8_t> bytes;
    bool keyframe = false;
};

/// Where the simulated phone's video comes from. Used from one thread.
class VideoSource
{
public:
    VideoSource() = default;
    VideoSource(const VideoSource&) = delete;
    VideoSource& operator=(const VideoSource&) = delete;
    virtual ~VideoSource() = default;

    [[nodiscard]] virtual StreamDescription description() const = 0;

    /// The access unit of frame `number`, which rises from call to call. With `wantKeyframe` it is
    /// a keyframe. Every keyframe carries its parameter sets. Nothing on failure; errorText() then
    /// says why.
    [[nodiscard]] virtual std::optional<AccessUnit> next(std::int64_t number,
                                                         bool wantKeyframe) = 0;

    /// Goes on with another picture size, beginning with a keyframe. False when the source cannot.
    [[nodiscard]] virtual bool resize(int width, int height) = 0;

    [[nodiscard]] virtual QString errorText() const = 0;
};

} // namespace pevrix
