#pragma once

#include "softcam/PictureFormat.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace pevrix {

// A picture as the camera's owner sends it: blue, green, red; top row first; no padding. Owns
// nothing.
struct BgrPicture
{
    const std::uint8_t* pixels = nullptr;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

// Where a picture of one size lies within one of another size: as large as fits with its
// proportions kept, in the middle. Sides and offsets are multiples of `step`, the sides at least
// one step.
struct PictureArea
{
    std::uint32_t x = 0;
    std::uint32_t y = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};
[[nodiscard]] PictureArea pictureArea(const BgrPicture& picture, const CameraFormat& reader,
                                      std::uint32_t step);

// Turns pictures of any size into those that one reader has agreed on: another layout (BT.601,
// limited range, as the rest of the program) and, where the sizes differ, scaled between black
// bars. Used by one thread at a time. Keeps its buffers, so that only a change of size allocates.
class PictureConverter
{
public:
    PictureConverter(PixelLayout layout, const CameraFormat& reader);

    // `to` takes the first pictureSize() bytes and must have them. The picture's sides are within
    // 1..8192. Throws std::bad_alloc.
    void convert(const BgrPicture& picture, std::span<std::uint8_t> to);

private:
    // Memory that keeps its size until another one is asked for.
    class Buffer
    {
    public:
        [[nodiscard]] std::uint8_t* ofSize(std::size_t size);

    private:
        std::unique_ptr<std::uint8_t[]> m_bytes;
        std::size_t m_size = 0;
    };

    void convertStrips(const BgrPicture& picture, std::uint8_t* to);
    void convertStrip(std::uint32_t row, std::uint32_t rows, std::uint8_t* to);
    void scaleYuv(const BgrPicture& picture, std::uint8_t* to);
    [[nodiscard]] std::uint8_t lossOf(const BgrPicture& picture, const PictureArea& area);
    void scaleBgr(const BgrPicture& picture, std::uint8_t* to);
    void fillBars(const PictureArea& area, std::uint8_t* to) const;

    PixelLayout m_layout;
    CameraFormat m_reader;
    Buffer m_source; // a strip or the whole of the picture with 4 bytes per pixel, or as I420
    Buffer m_scaled; // the same in the reader's size
    // What scaling takes from flat samples of pictures of this size.
    struct
    {
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        std::uint8_t loss = 0;
    } m_known;
};

} // namespace pevrix
