#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pevrix {

/// A planar 4:2:0 picture in memory that somebody else owns. Strides are bytes per row; the chroma
/// planes are half as wide and half as high as the picture.
struct PictureView
{
    std::uint8_t* y = nullptr;
    std::uint8_t* u = nullptr;
    std::uint8_t* v = nullptr;
    std::ptrdiff_t strideY = 0;
    std::ptrdiff_t strideC = 0;
    int width = 0;
    int height = 0;
};

/// One colour as BT.601 limited-range Y, U, V: the range that the PC converts from.
struct Yuv
{
    std::uint8_t y = 16;
    std::uint8_t u = 128;
    std::uint8_t v = 128;
};

/// The moving test picture of the simulated phone: colour bars over a grey ramp, the frame number
/// in large digits, the size as text, a box that slides over the ramp and a disc that bounces over
/// the bars. Sensor noise may lie over all of it: without noise the picture compresses to a tenth
/// of what a camera's does. A picture depends on nothing but its size, the noise level and the
/// frame number, and only integers are used, so every machine draws the same one.
class Pattern
{
public:
    /// Sizes are in pixels, even, and within these limits.
    static constexpr int kMinSize = 64;
    static constexpr int kMaxSize = 4096;

    /// Noise changes the luma by at most so much.
    static constexpr int kMaxNoise = 16;

    Pattern(int width, int height, int noise = 0);

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }

    /// Draws frame `number` over the whole of `picture`, which must have this pattern's size.
    void draw(std::int64_t number, const PictureView& picture) const;

private:
    [[nodiscard]] PictureView background();
    void drawBackground(const PictureView& picture) const;
    void copyBackground(const PictureView& picture) const;
    void drawBox(std::int64_t number, const PictureView& picture) const;
    void drawDisc(std::int64_t number, const PictureView& picture) const;
    void drawTexts(std::int64_t number, const PictureView& picture) const;
    void addNoise(std::int64_t number, const PictureView& picture) const;

    int m_width;
    int m_height;
    std::vector<std::uint8_t> m_background; // Y, U and V plane without gaps, drawn once
    std::vector<std::uint8_t> m_noise;      // luma differences modulo 256; empty: no noise
};

} // namespace pevrix
