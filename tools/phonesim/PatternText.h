#pragma once

#include "tools/phonesim/Pattern.h"

#include <string_view>

namespace pevrix {

/// A rectangle in pixels of the picture.
struct Box
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// Fills `box` with one colour. What lies outside the picture is cut off; edges are rounded down
/// to even pixels, because two pixels share one chroma sample.
void fillRect(const PictureView& picture, Box box, Yuv colour);

/// Fills a disc; the same rules as fillRect().
void fillDisc(const PictureView& picture, int centreX, int centreY, int radius, Yuv colour);

/// The width of `text` in cells (the pixels of the letters), with a margin of one on both sides.
[[nodiscard]] int textCells(std::string_view text);

/// The height in pixels of a line of text whose cells are `cell` pixels wide and high.
[[nodiscard]] int textHeight(int cell);

/// Draws `text` (digits and 'x'; other characters leave a gap) in `ink` on a plate of `paper`,
/// centred around the column `centreX`, its plate's top at `top`. `cell` is even.
void drawText(const PictureView& picture, std::string_view text, int centreX, int top, int cell,
              Yuv ink, Yuv paper);

} // namespace pevrix
