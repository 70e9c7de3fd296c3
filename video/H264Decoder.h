#pragma once

#include "picture/PictureSize.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace pevrix {

// Turns the phone's H.264 stream into packed BGR pictures. No thread, timer or queue of its own:
// every call runs on the caller's thread, and pictures are handed out before the call returns.
// One caller at a time. Nothing is logged and nothing thrown: data that cannot be decoded is
// dropped. Nothing is shown before the first keyframe. Later a damaged picture is shown as far as
// it could be restored, for a short blemish disturbs less than a frozen picture; the next clean
// keyframe ends it. (Damaged parameter sets may also announce pictures out of order, which are then
// held back until the stream begins anew.) Only 8-bit 4:2:0 pictures of at most kMaxPicturePixels
// are delivered.
class H264Decoder
{
public:
    // Packed 3-byte pixels in the order blue, green, red, top row first, rows of exactly
    // width * 3 bytes. The pointer is valid only during the call; of the decoder, the callback
    // may call swapPixels() and shownSize() alone.
    using FrameCallback =
        std::function<void(const std::uint8_t* bgr, int width, int height, std::int64_t ptsUsec)>;

    explicit H264Decoder(FrameCallback onFrame = {});
    ~H264Decoder();
    H264Decoder(const H264Decoder&) = delete;
    H264Decoder& operator=(const H264Decoder&) = delete;

    void setFrameCallback(FrameCallback onFrame);

    // Makes a decoder for a stream of the announced size, in pixels, tearing down the one that
    // exists. The size is only a hint: pictures come with the size that the stream itself
    // declares. False leaves the decoder uninitialised.
    [[nodiscard]] bool initialize(std::uint32_t width, std::uint32_t height);

    // Whether feed() does anything, that is, whether the last initialize() succeeded and no
    // reset() followed.
    [[nodiscard]] bool initialized() const;

    // Submits one Annex-B access unit, or a blob of parameter sets (with time 0), and delivers
    // every picture that is ready. A picture carries the time of its access unit. Of several
    // access units in one call pictures may be lost.
    void feed(std::span<const std::uint8_t> data, std::int64_t timestampUs);

    // Delivers what is ready without new input.
    void drain();

    // For the callback: takes the memory of the picture that is being delivered, which stays where
    // it is, and leaves the decoder other memory for the next one.
    void swapPixels(std::vector<std::uint8_t>& pixels) { m_bgr.swap(pixels); }

    struct Size
    {
        int width = 0;
        int height = 0;
    };

    // For the callback: the part of the picture that is being delivered, from its top left corner,
    // that is meant to be seen. It is smaller than the picture where the system's decoder delivers
    // whole macroblocks.
    [[nodiscard]] Size shownSize() const;

    // Drops the decoder with its parameter sets and reference pictures; the callback stays.
    void reset();

private:
    struct BackEnd;

    FrameCallback m_onFrame;
    std::vector<std::uint8_t> m_bgr;
    std::unique_ptr<BackEnd> m_backEnd;
};

} // namespace pevrix
