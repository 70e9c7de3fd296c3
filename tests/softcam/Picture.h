#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace pevrix::test {

struct Color
{
    int blue = 0;
    int green = 0;
    int red = 0;
};

// A camera picture of 8 x 8 blocks of random colours, so that no chroma sample lies on a border.
// The blue of the first block tells pictures of a sequence apart.
class Picture
{
public:
    Picture(int width, int height)
        : m_width(width)
        , m_height(height)
        , m_bytes(std::size_t{3} * static_cast<std::size_t>(width * height))
    {
        std::mt19937 random(20240501);
        std::vector<Color> blocks(static_cast<std::size_t>((width / 8 + 1) * (height / 8 + 1)));
        for (Color& block : blocks) {
            block = {static_cast<int>(random() % 256), static_cast<int>(random() % 256),
                     static_cast<int>(random() % 256)};
        }
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const auto block = static_cast<std::size_t>(y / 8 * (width / 8 + 1) + x / 8);
                set(x, y, blocks[block]);
            }
        }
    }

    static Picture flat(int width, int height, Color color)
    {
        Picture picture(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                picture.set(x, y, color);
            }
        }
        return picture;
    }

    // Four quadrants of different colours, of which the last tells pictures apart: 0 to 9.
    static Picture quadrants(int width, int height, int number = 0)
    {
        Picture picture(width, height);
        const int gray = 40 + 20 * number;
        const std::array<Color, 4> colors{
            {{40, 60, 200}, {60, 180, 90}, {190, 110, 50}, {gray, gray, gray}}};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int quadrant = (2 * y >= height ? 2 : 0) + (2 * x >= width ? 1 : 0);
                picture.set(x, y, colors[static_cast<std::size_t>(quadrant)]);
            }
        }
        return picture;
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

private:
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
