#include "tools/camreader/RawPicture.h"

#include <algorithm>
#include <cmath>

namespace pevrix {

namespace {

// BT.601, limited range.
Rgb fromYuv(int y, int u, int v)
{
    const double luma = 255.0 / 219 * (y - 16);
    const double blue = 255.0 / 224 * (u - 128);
    const double red = 255.0 / 224 * (v - 128);
    const auto component = [](double value) {
        return std::clamp(static_cast<int>(std::lround(value)), 0, 255);
    };
    return {component(luma + 1.402 * red), component(luma - 0.344136 * blue - 0.714136 * red),
            component(luma + 1.772 * blue)};
}

std::size_t rgbStride(std::size_t width)
{
    return (3 * width + 3) / 4 * 4;
}

} // namespace

std::string_view layoutName(RawLayout layout)
{
    switch (layout) {
    case RawLayout::Yuy2:
        return "YUY2";
    case RawLayout::I420:
        return "I420";
    case RawLayout::Nv12:
        return "NV12";
    case RawLayout::Rgb24:
        return "RGB24";
    case RawLayout::None:
        break;
    }
    return "none";
}

std::size_t layoutSize(RawLayout layout, int width, int height)
{
    const auto w = static_cast<std::size_t>(width);
    const auto h = static_cast<std::size_t>(height);
    switch (layout) {
    case RawLayout::Yuy2:
        return 2 * w * h;
    case RawLayout::I420:
    case RawLayout::Nv12:
        return w * h + 2 * ((w + 1) / 2) * ((h + 1) / 2);
    case RawLayout::Rgb24:
        return rgbStride(w) * h;
    case RawLayout::None:
        break;
    }
    return 0;
}

Rgb RawPicture::pixel(int x, int y) const
{
    const auto w = static_cast<std::size_t>(m_width);
    const auto h = static_cast<std::size_t>(m_height);
    const auto column = static_cast<std::size_t>(x);
    const auto row = static_cast<std::size_t>(y);
    const std::size_t chroma = row / 2 * ((w + 1) / 2) + column / 2;
    switch (m_layout) {
    case RawLayout::Yuy2: {
        const std::size_t pair = row * 2 * w + column / 2 * 4;
        return fromYuv(m_bytes[row * 2 * w + 2 * column], m_bytes[pair + 1], m_bytes[pair + 3]);
    }
    case RawLayout::I420:
        return fromYuv(m_bytes[row * w + column], m_bytes[w * h + chroma],
                       m_bytes[w * h + ((w + 1) / 2) * ((h + 1) / 2) + chroma]);
    case RawLayout::Nv12:
        return fromYuv(m_bytes[row * w + column], m_bytes[w * h + 2 * chroma],
                       m_bytes[w * h + 2 * chroma + 1]);
    case RawLayout::Rgb24: {
        const std::size_t at = (h - 1 - row) * rgbStride(w) + 3 * column;
        return {m_bytes[at + 2], m_bytes[at + 1], m_bytes[at]};
    }
    case RawLayout::None:
        break;
    }
    return {};
}

} // namespace pevrix
