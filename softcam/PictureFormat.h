#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace pevrix {

// Size and rate of a camera's pictures, as its owner sends them or as a reader has agreed on them.
// Made by cameraFormat() only, so that every size computed from it fits.
struct CameraFormat
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t rateNumerator = 0; // pictures per second, as a reduced fraction
    std::uint32_t rateDenominator = 1;

    // Bytes of a picture as the camera's owner sends it.
    [[nodiscard]] std::size_t bgrSize() const { return std::size_t{3} * width * height; }

    // From one picture to the next.
    [[nodiscard]] std::chrono::nanoseconds interval() const
    {
        return std::chrono::nanoseconds(1'000'000'000LL * rateDenominator / rateNumerator);
    }

    bool operator==(const CameraFormat&) const = default;
};

// Empty when a side is not within 1..8192. Of a rate that makes no sense it makes 30.
[[nodiscard]] std::optional<CameraFormat> cameraFormat(int width, int height, float framerate);

// The layouts in which a picture is handed out. Planes follow each other without a gap, and rows
// are not padded unless it says so: some readers ignore strides.
enum class PixelLayout
{
    None,
    Bgr,         // 3 bytes per pixel
    BgrBottomUp, // the same with the bottom row first and rows padded to 4 bytes, as bitmaps have
                 // it
    Yuy2,        // Y0 U Y1 V for two pixels side by side
    Nv12,        // Y, then U V pairs for 2 x 2 pixels
    I420         // Y, then U, then V
};

// Whether pictures of this size can take the layout. Beside whole chroma samples, a planar layout
// needs rows of every plane that end at multiples of 4 bytes: other consumers pad them to that,
// whatever stride they are told, and read beyond the end (GStreamer 1.26 crashes).
[[nodiscard]] bool suits(PixelLayout layout, const CameraFormat& format);

// Bytes of the first plane's row, and of the whole picture.
[[nodiscard]] std::size_t rowSize(PixelLayout layout, const CameraFormat& format);
[[nodiscard]] std::size_t pictureSize(PixelLayout layout, const CameraFormat& format);

// Copies a picture into memory laid out for one whose rows are `rowWidth` pixels, of which it takes
// the left ones. Both widths must suit the layout, `rowWidth` must be no smaller than the
// picture's.
void copyToWiderRows(PixelLayout layout, const CameraFormat& format, std::uint32_t rowWidth,
                     const std::uint8_t* from, std::uint8_t* to);

} // namespace pevrix
