#include "softcam/PictureFormat.h"

#include <libyuv.h>

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstring>
#include <numeric>

namespace pevrix {

namespace {

constexpr int kMaxSide = 8192; // of the program's recordings too
constexpr float kDefaultRate = 30.0F;
constexpr float kMaxRate = 1000.0F;
constexpr std::uint32_t kRatePrecision = 1000; // 29.97 becomes 2997/100

// A strip of 1280 pixels with 4 bytes each stays in a core's cache. Even, for 4:2:0.
constexpr std::uint32_t kStripRows = 32;

} // namespace

std::optional<CameraFormat> cameraFormat(int width, int height, float framerate)
{
    if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide) {
        return std::nullopt;
    }
    const float rate = framerate > 1.0F ? std::min(framerate, kMaxRate) : kDefaultRate;
    const auto numerator = static_cast<std::uint32_t>(std::lround(rate * kRatePrecision));
    const std::uint32_t divisor = std::gcd(numerator, kRatePrecision);
    return CameraFormat{.width = static_cast<std::uint32_t>(width),
                        .height = static_cast<std::uint32_t>(height),
                        .rateNumerator = numerator / divisor,
                        .rateDenominator = kRatePrecision / divisor};
}

bool suits(PixelLayout layout, const CameraFormat& format)
{
    switch (layout) {
    case PixelLayout::None:
        return false;
    case PixelLayout::Bgr:
        return true;
    case PixelLayout::Yuy2:
        return format.width % 2 == 0;
    case PixelLayout::Nv12:
        return format.width % 4 == 0 && format.height % 2 == 0;
    case PixelLayout::I420:
        return format.width % 8 == 0 && format.height % 2 == 0;
    }
    return false;
}

std::size_t rowSize(PixelLayout layout, const CameraFormat& format)
{
    switch (layout) {
    case PixelLayout::None:
        return 0;
    case PixelLayout::Bgr:
        return std::size_t{3} * format.width;
    case PixelLayout::Yuy2:
        return std::size_t{2} * format.width;
    case PixelLayout::Nv12:
    case PixelLayout::I420:
        return format.width;
    }
    return 0;
}

std::size_t pictureSize(PixelLayout layout, const CameraFormat& format)
{
    const std::size_t firstPlane = rowSize(layout, format) * format.height;
    const bool planar = layout == PixelLayout::Nv12 || layout == PixelLayout::I420;
    return planar ? firstPlane + firstPlane / 2 : firstPlane;
}

LayoutConverter::LayoutConverter(const CameraFormat& format)
    : m_format(format)
    , m_strip(std::make_unique_for_overwrite<std::uint8_t[]>(std::size_t{4} * format.width *
                                                             kStripRows))
{}

void LayoutConverter::convert(const std::uint8_t* bgr, PixelLayout layout,
                              std::span<std::uint8_t> to)
{
    assert(to.size() >= pictureSize(layout, m_format));
    if (layout == PixelLayout::Bgr) {
        std::memcpy(to.data(), bgr, m_format.bgrSize());
        return;
    }
    const auto width = static_cast<int>(m_format.width);
    for (std::uint32_t row = 0; row < m_format.height; row += kStripRows) {
        const std::uint32_t rows = std::min(kStripRows, m_format.height - row);
        const std::size_t offset = std::size_t{3} * m_format.width * row;
        libyuv::RGB24ToARGB(bgr + offset, 3 * width, m_strip.get(), 4 * width, width,
                            static_cast<int>(rows));
        convertStrip(row, rows, layout, to.data());
    }
}

void LayoutConverter::convertStrip(std::uint32_t row, std::uint32_t rows, PixelLayout layout,
                                   std::uint8_t* to)
{
    const auto width = static_cast<int>(m_format.width);
    const auto height = static_cast<int>(rows);
    const std::size_t pixels = std::size_t{m_format.width} * m_format.height;
    const std::size_t above = std::size_t{m_format.width} * row;
    const std::uint8_t* strip = m_strip.get();
    switch (layout) {
    case PixelLayout::None:
    case PixelLayout::Bgr:
        break;
    case PixelLayout::Yuy2:
        libyuv::ARGBToYUY2(strip, 4 * width, to + 2 * above, 2 * width, width, height);
        break;
    case PixelLayout::Nv12:
        libyuv::ARGBToNV12(strip, 4 * width, to + above, width, to + pixels + above / 2, width,
                           width, height);
        break;
    case PixelLayout::I420: {
        std::uint8_t* u = to + pixels + above / 4;
        libyuv::ARGBToI420(strip, 4 * width, to + above, width, u, width / 2, u + pixels / 4,
                           width / 2, width, height);
        break;
    }
    }
}

} // namespace pevrix
