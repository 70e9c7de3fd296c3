#include "tools/phonesim/PatternText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace pevrix {

namespace {

constexpr int kGlyphWidth = 5;
constexpr int kGlyphHeight = 7;
using Glyph = std::array<std::uint8_t, kGlyphHeight>; // a row a byte, the leftmost cell in bit 4

constexpr std::array<Glyph, 10> kDigits{{
    {0b01110, 0b10001, 0b10011, 0b10101, 0b11001, 0b10001, 0b01110},
    {0b00100, 0b01100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110},
    {0b01110, 0b10001, 0b00001, 0b00110, 0b01000, 0b10000, 0b11111},
    {0b01110, 0b10001, 0b00001, 0b00110, 0b00001, 0b10001, 0b01110},
    {0b00010, 0b00110, 0b01010, 0b10010, 0b11111, 0b00010, 0b00010},
    {0b11111, 0b10000, 0b11110, 0b00001, 0b00001, 0b10001, 0b01110},
    {0b00110, 0b01000, 0b10000, 0b11110, 0b10001, 0b10001, 0b01110},
    {0b11111, 0b00001, 0b00010, 0b00100, 0b01000, 0b01000, 0b01000},
    {0b01110, 0b10001, 0b10001, 0b01110, 0b10001, 0b10001, 0b01110},
    {0b01110, 0b10001, 0b10001, 0b01111, 0b00001, 0b00010, 0b01100},
}};
constexpr Glyph kLetterX{0b00000, 0b00000, 0b10001, 0b01010, 0b00100, 0b01010, 0b10001};
constexpr Glyph kGap{};

const Glyph& glyphOf(char character)
{
    if (character >= '0' && character <= '9') {
        return kDigits[static_cast<std::size_t>(character - '0')];
    }
    return character == 'x' ? kLetterX : kGap;
}

void fillPlane(std::uint8_t* plane, std::ptrdiff_t stride, Box box, std::uint8_t value)
{
    for (int row = box.y; row < box.y + box.height; ++row) {
        std::memset(plane + row * stride + box.x, value, static_cast<std::size_t>(box.width));
    }
}

void drawGlyph(const PictureView& picture, const Glyph& glyph, int x, int y, int cell, Yuv ink)
{
    for (int row = 0; row < kGlyphHeight; ++row) {
        for (int column = 0; column < kGlyphWidth; ++column) {
            if ((glyph[static_cast<std::size_t>(row)] >> (kGlyphWidth - 1 - column)) & 1) {
                fillRect(picture, {x + column * cell, y + row * cell, cell, cell}, ink);
            }
        }
    }
}

} // namespace

void fillRect(const PictureView& picture, Box box, Yuv colour)
{
    const int left = std::clamp(box.x, 0, picture.width) & ~1;
    const int right = std::clamp(box.x + box.width, left, picture.width) & ~1;
    const int top = std::clamp(box.y, 0, picture.height) & ~1;
    const int bottom = std::clamp(box.y + box.height, top, picture.height) & ~1;
    const Box luma{left, top, right - left, bottom - top};
    const Box chroma{left / 2, top / 2, luma.width / 2, luma.height / 2};
    fillPlane(picture.y, picture.strideY, luma, colour.y);
    fillPlane(picture.u, picture.strideC, chroma, colour.u);
    fillPlane(picture.v, picture.strideC, chroma, colour.v);
}

void fillDisc(const PictureView& picture, int centreX, int centreY, int radius, Yuv colour)
{
    int half = 0; // grows from the top row to the middle and shrinks again
    for (int dy = -radius; dy < radius; dy += 2) {
        const int limit = radius * radius - dy * dy;
        while (half * half < limit) {
            ++half;
        }
        while (half * half > limit) {
            --half;
        }
        fillRect(picture, {centreX - half, centreY + dy, 2 * half, 2}, colour);
    }
}

int textCells(std::string_view text)
{
    return static_cast<int>(text.size()) * (kGlyphWidth + 1) + 1;
}

int textHeight(int cell)
{
    return (kGlyphHeight + 2) * cell;
}

void drawText(const PictureView& picture, std::string_view text, int centreX, int top, int cell,
              Yuv ink, Yuv paper)
{
    const int width = textCells(text) * cell;
    const int left = (centreX - width / 2) & ~1;
    fillRect(picture, {left, top, width, textHeight(cell)}, paper);
    int x = left + cell;
    for (const char character : text) {
        drawGlyph(picture, glyphOf(character), x, top + cell, cell, ink);
        x += (kGlyphWidth + 1) * cell;
    }
}

} // namespace pevrix
