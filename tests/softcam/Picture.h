#pragma once

#include "softcam/PictureConverter.h"

#include <array>
#include <cstdint>
#include <vector>

namespace pevrix::test {

struct Color
{
    int blue = 0;
    int green = 0;
    int red = 0;
};

// A camera picture. The blue of its first 8 x 8 pixels tells pictures of a sequence apart.
class Picture
{
public:
    static Picture flat(int width, int height, const Color& color)
    {
        return Picture(width, height, [&](int, int) { return color; });
    }

    // Four quadrants of different colours, of which the last tells pictures apart: 0 to 9.
    static Picture quadrants(int width, int height, int number = 0)
    {
        const int gray = 40 + 20 * number;
        const std::array<Color, 4> colors{
            {{40, 60, 200}, {60, 180, 90}, {190, 110, 50}, {gray, gray, gray}}};
        return Picture(width, height, [&](int x, int y) {
            return colors[(2 * y >= height ? 2U : 0U) + (2 * x >= width ? 1U : 0U)];
        });
    }

    void setNumber(std::uint8_t number)
    {
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 8; ++x) {
                set(x, y, {number, 0, 0});
            }
        }
    }

    [[nodiscard]] Color at(int x, int y) const
    {
        const std::uint8_t* pixel = &m_bytes[offset(x, y)];
        return {pixel[0], pixel[1], pixel[2]};
    }

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }
    [[nodiscard]] const std::uint8_t* bytes() const { return m_bytes.data(); }
    [[nodiscard]] BgrPicture bgr() const
    {
        return {bytes(), static_cast<std::uint32_t>(m_width), static_cast<std::uint32_t>(m_height)};
    }

private:
    template <typename ColorAt>
    Picture(int width, int height, ColorAt colorAt)
        : m_width(width)
        , m_height(height)
        , m_bytes(std::size_t{3} * static_cast<std::size_t>(width * height))
    {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                set(x, y, colorAt(x, y));
            }
        }
    }

    [[nodiscard]] std::size_t offset(int x, int y) const
    {
        return std::size_t{3} * static_cast<std::size_t>(y * m_width + x);
    }
    void set(int x, int y, Color color)
    {
        std::uint8_t* pixel = &m_bytes[offset(x, y)];
        pixel[0] = static_cast<std::uint8_t>(color.blue);
        pixel[1] = static_cast<std::uint8_t>(color.green);
        pixel[2] = static_cast<std::uint8_t>(color.red);
    }

    int m_width;
    int m_height;
    std::vector<std::uint8_t> m_bytes;
};

} // namespace pevrix::test
