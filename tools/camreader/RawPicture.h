#pragma once

#include "tools/camreader/TestPicture.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace pevrix {

enum class RawLayout
{
    None,
    Yuy2,
    I420,
    Nv12,
    Rgb24, // bottom row first, rows padded to 4 bytes
};

inline constexpr std::array kRawLayouts{RawLayout::Yuy2, RawLayout::I420, RawLayout::Nv12,
                                        RawLayout::Rgb24};

[[nodiscard]] std::string_view layoutName(RawLayout layout);
[[nodiscard]] std::size_t layoutSize(RawLayout layout, int width, int height);

// A picture's bytes as they lie in a sample. They must live as long and have layoutSize() bytes.
class RawPicture final : public Picture
{
public:
    RawPicture(RawLayout layout, int width, int height, std::span<const std::uint8_t> bytes)
        : m_layout(layout)
        , m_width(width)
        , m_height(height)
        , m_bytes(bytes)
    {}

    [[nodiscard]] int width() const override { return m_width; }
    [[nodiscard]] int height() const override { return m_height; }
    [[nodiscard]] Rgb pixel(int x, int y) const override;

private:
    RawLayout m_layout;
    int m_width;
    int m_height;
    std::span<const std::uint8_t> m_bytes;
};

} // namespace pevrix
