#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace pevrix {

// What a camera shows. Made by cameraFormat() only, so that every size computed from it fits.
struct CameraFormat
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t rateNumerator = 0; // pictures per second, as a reduced fraction
    std::uint32_t rateDenominator = 1;

    // Bytes of a picture as the camera's owner sends it.
    [[nodiscard]] std::size_t bgrSize() const { return std::size_t{3} * width * height; }
};

// Empty when a side is not within 1..8192. Of a rate that makes no sense it makes 30.
[[nodiscard]] std::optional<CameraFormat> cameraFormat(int width, int height, float framerate);

// The layouts in which a picture is handed out. Rows are never padded, and planes follow each other
// without a gap: some consumers ignore strides.
enum class PixelLayout
{
    None,
    Bgr,  // 3 bytes per pixel
    Yuy2, // Y0 U Y1 V for two pixels side by side
    Nv12, // Y, then U V pairs for 2 x 2 pixels
    I420  // Y, then U, then V
};

// The best first: YUY2 and NV12 are what most programs know.
inline constexpr std::array kPixelLayouts{PixelLayout::Yuy2, PixelLayout::Nv12, PixelLayout::I420,
                                          PixelLayout::Bgr};

// Whether pictures of this size can take the layout. Beside whole chroma samples, a planar layout
// needs rows of every plane that end at multiples of 4 bytes: other consumers pad them to that,
// whatever stride they are told, and read beyond the end (GStreamer 1.26 crashes).
[[nodiscard]] bool suits(PixelLayout layout, const CameraFormat& format);

// Bytes of the first plane's row, and of the whole picture.
[[nodiscard]] std::size_t rowSize(PixelLayout layout, const CameraFormat& format);
[[nodiscard]] std::size_t pictureSize(PixelLayout layout, const CameraFormat& format);

// Turns pictures of one camera into another layout: BT.601, limited range, as the rest of the
// program. Used by one thread at a time.
class LayoutConverter
{
public:
    explicit LayoutConverter(const CameraFormat& format);

    // `bgr` has bgrSize() bytes; `to` takes the first pictureSize() bytes and must have them.
    void convert(const std::uint8_t* bgr, PixelLayout layout, std::span<std::uint8_t> to);

private:
    void convertStrip(std::uint32_t row, std::uint32_t rows, PixelLayout layout, std::uint8_t* to);

    CameraFormat m_format;
    std::unique_ptr<std::uint8_t[]> m_strip; // some rows with 4 bytes per pixel
};

} // namespace pevrix
