#pragma once

#include "video/H264Decoder.h"
#include "video/MediaFoundation_win.h"

namespace pevrix {

// How the pictures of a decoder transform lie in memory: what the chosen output type says of them.
struct DecoderOutput
{
    // A picture of the largest size that is delivered, however the transform aligns it.
    static constexpr std::uint32_t kMaxBytes = 64 * 1024 * 1024;

    std::uint32_t width = 0; // of the picture, in pixels
    std::uint32_t height = 0;
    std::uint32_t stride = 0; // bytes from one row of luma to the next
    std::uint32_t bufferSize = 0;
    bool transformAllocates = false; // the output samples
    H264Decoder::Size shown;         // the part of the picture that is meant to be seen

    // Takes the first NV12 type that the transform offers, and its size and stride. Those count
    // even if the transform then refuses the type, which makes it false.
    [[nodiscard]] bool negotiate(IMFTransform& transform);

    // Whether pictures of this size are delivered.
    [[nodiscard]] bool sizeAllowed() const;

    // Writes width * height packed BGR pixels. False when the picture is not delivered: its memory
    // does not hold what the type says, or there is none for the pixels.
    [[nodiscard]] bool convert(IMFSample& picture, std::vector<std::uint8_t>& bgr) const;

private:
    void readShownSize(IMFMediaType& type);
    void readStreamInfo(IMFTransform& transform);
};

} // namespace pevrix
