#pragma once

#include "softcam/PictureFormat.h"
#include "tests/softcam/Picture.h"

#include <array>
#include <cmath>
#include <cstdlib>

namespace pevrix::test {

// What a picture has at one place: blue, green, red, or Y, U, V.
using Samples = std::array<int, 3>;

inline bool isYuv(PixelLayout layout)
{
    return layout != PixelLayout::Bgr && layout != PixelLayout::BgrBottomUp;
}

// The samples of a colour: BT.601, limited range, as the standard gives it.
inline Samples expectedSamples(PixelLayout layout, const Color& color)
{
    if (!isYuv(layout)) {
        return {color.blue, color.green, color.red};
    }
    const double r = color.red / 255.0;
    const double g = color.green / 255.0;
    const double b = color.blue / 255.0;
    const double luma = 0.299 * r + 0.587 * g + 0.114 * b;
    return {static_cast<int>(std::lround(16 + 219 * luma)),
            static_cast<int>(std::lround(128 + 224 * (b - luma) / 1.772)),
            static_cast<int>(std::lround(128 + 224 * (r - luma) / 1.402))};
}

inline Samples samplesAt(const std::uint8_t* picture, PixelLayout layout,
                         const CameraFormat& format, int column, int row)
{
    const auto x = static_cast<std::size_t>(column);
    const auto y = static_cast<std::size_t>(row);
    const std::size_t width = format.width;
    const std::size_t pixels = width * format.height;
    switch (layout) {
    case PixelLayout::Yuy2: {
        const std::uint8_t* pair = picture + (y * width + x / 2 * 2) * 2;
        return {pair[x % 2 * 2], pair[1], pair[3]};
    }
    case PixelLayout::Nv12: {
        const std::uint8_t* chroma = picture + pixels + y / 2 * width + x / 2 * 2;
        return {picture[y * width + x], chroma[0], chroma[1]};
    }
    case PixelLayout::I420: {
        const std::uint8_t* chroma = picture + pixels + y / 2 * (width / 2) + x / 2;
        return {picture[y * width + x], chroma[0], chroma[pixels / 4]};
    }
    case PixelLayout::Bgr:
    case PixelLayout::BgrBottomUp: {
        const std::size_t inMemory = layout == PixelLayout::Bgr ? y : format.height - 1 - y;
        const std::uint8_t* pixel = picture + inMemory * rowSize(layout, format) + 3 * x;
        return {pixel[0], pixel[1], pixel[2]};
    }
    case PixelLayout::None:
        break;
    }
    return {};
}

inline bool isClose(const Samples& seen, const Samples& expected, int tolerance)
{
    bool close = true;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        close = close && std::abs(seen[i] - expected[i]) <= tolerance;
    }
    return close;
}

// How many places of a picture are wrong that shows `shown` scaled between bars: samples farther
// than 2 from the reference within the quadrants, and anything but black farther than 2 pixels
// outside the area. What lies at the edges of the quadrants is a mixture and is passed over.
inline int wrongPlaces(const std::uint8_t* picture, PixelLayout layout, const CameraFormat& format,
                       const Picture& shown)
{
    constexpr int kBlur = 6; // pixels at an edge; chroma is coarser, and scaling up spreads it
    const double scale =
        std::min(double(format.width) / shown.width(), double(format.height) / shown.height());
    const int blur = kBlur + static_cast<int>(2 * scale);
    const double left = (format.width - shown.width() * scale) / 2;
    const double top = (format.height - shown.height() * scale) / 2;
    const Samples black = expectedSamples(layout, {});
    int wrong = 0;
    for (int y = 0; y < static_cast<int>(format.height); ++y) {
        for (int x = 0; x < static_cast<int>(format.width); ++x) {
            // The distance into each quadrant's half, outside the picture below zero.
            const double right = shown.width() * scale - (x - left);
            const double below = shown.height() * scale - (y - top);
            const double inside = std::min({x - left, y - top, right, below});
            const double fromMiddle = std::min(std::abs(x - left - shown.width() * scale / 2),
                                               std::abs(y - top - shown.height() * scale / 2));
            const Samples seen = samplesAt(picture, layout, format, x, y);
            if (inside < -3) { // a pixel's own width beyond the 2
                wrong += !isClose(seen, black, 0);
            } else if (inside > blur && fromMiddle > blur) {
                const auto column = static_cast<int>((x - left) / scale);
                const auto row = static_cast<int>((y - top) / scale);
                const bool inNumber = column < 10 && row < 10; // see Picture::setNumber()
                wrong +=
                    !inNumber && !isClose(seen, expectedSamples(layout, shown.at(column, row)), 2);
            }
        }
    }
    return wrong;
}

} // namespace pevrix::test
