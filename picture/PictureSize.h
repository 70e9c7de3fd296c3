#pragma once

#include <cstddef>
#include <cstdint>

namespace pevrix {

// Nothing larger is decoded, sent to a camera or drawn. What phones send fits: 4K, upright or
// lying. A few bytes of a stream can declare 16384 x 16384, where each reference picture takes 400
// MB, and a phone announces its size before its first picture.
inline constexpr std::int64_t kMaxPicturePixels = std::int64_t{4096} * 4096;

// Whether a picture of this size may be allocated: not empty and within the limit.
[[nodiscard]] constexpr bool isPictureSize(int width, int height)
{
    return width > 0 && height > 0 && std::int64_t{width} * height <= kMaxPicturePixels;
}

// The bytes of a packed picture with 3 bytes per pixel and rows without padding. The size must be
// one that isPictureSize() accepts, or 0 by 0.
[[nodiscard]] constexpr std::size_t pictureBytes(int width, int height)
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
}

} // namespace pevrix
