#include "softcam/PictureFormat.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>

namespace pevrix {

namespace {

constexpr int kMaxSide = 8192; // of the program's recordings too
constexpr float kDefaultRate = 30.0F;
constexpr float kMaxRate = 1000.0F;
constexpr std::uint32_t kRatePrecision = 1000; // 29.97 becomes 2997/100

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
    case PixelLayout::BgrBottomUp:
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
    case PixelLayout::BgrBottomUp:
        return (std::size_t{3} * format.width + 3) / 4 * 4;
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

void copyToWiderRows(PixelLayout layout, const CameraFormat& format, std::uint32_t rowWidth,
                     const std::uint8_t* from, std::uint8_t* to)
{
    CameraFormat wide = format;
    wide.width = rowWidth;
    const std::size_t row = rowSize(layout, format);
    const std::size_t wideRow = rowSize(layout, wide);
    const auto copy = [&](std::size_t rows, std::size_t part) {
        for (std::size_t y = 0; y < rows; ++y, from += row / part, to += wideRow / part) {
            std::memcpy(to, from, row / part);
        }
    };
    copy(format.height, 1);
    if (layout == PixelLayout::Nv12) {
        copy(format.height / 2, 1);
    } else if (layout == PixelLayout::I420) {
        copy(format.height, 2); // half the rows of each, one after the other
    }
}

} // namespace pevrix
