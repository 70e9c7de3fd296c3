#include "tools/camreader/TestPicture.h"

#include <algorithm>
#include <cstdlib>

namespace pevrix {

namespace {

constexpr int kColumns = 16;
constexpr int kRows = 12;
constexpr int kTopRows = 4;
constexpr int kBottomRows = 3;
constexpr int kFirstBottomRow = kRows - kBottomRows;
constexpr int kColourColumns = 4;

constexpr Rgb kZero{70, 70, 70};
constexpr Rgb kOne{210, 210, 210};
constexpr int kBetweenBits = 140;
// Between black and the darkest cell: where an edge is smeared, half of it.
constexpr int kEdgeBrightness = 35;

// Keeps a row of equal cells from being a label.
constexpr std::uint32_t kSumStart = 0xA5C3;

std::uint32_t checksum(std::uint32_t number, std::uint32_t stamp)
{
    const std::uint32_t mixed = (number * 0x9E37'79B1U) ^ (stamp * 0x85EB'CA6BU);
    return ((mixed >> 16) ^ mixed ^ kSumStart) & 0xFFFF;
}

// The cell (column, row) of a grid over the area; its edges meet those of its neighbours.
Area cellOf(const Area& area, int column, int row, int columns = 1, int rows = 1)
{
    const int left = area.width * column / kColumns;
    const int top = area.height * row / kRows;
    return {area.left + left, area.top + top, area.width * (column + columns) / kColumns - left,
            area.height * (row + rows) / kRows - top};
}

// The middle of an area: half of each side, away from what scaling and shared chroma mix in.
Area middleOf(const Area& area)
{
    return {area.left + area.width / 4, area.top + area.height / 4, std::max(1, area.width / 2),
            std::max(1, area.height / 2)};
}

// The two rows of colours share an odd number of cells.
Area colourArea(const Area& box, int index)
{
    const int column = index % 4 * kColourColumns;
    Area both = cellOf(box, column, kTopRows, kColourColumns, kFirstBottomRow - kTopRows);
    const int half = both.height / 2;
    if (index >= 4) {
        both.top += half;
        both.height -= half;
    } else {
        both.height = half;
    }
    return both;
}

int brightness(const Rgb& colour)
{
    return (2 * colour.red + 5 * colour.green + colour.blue) / 8;
}

std::uint64_t readBits(const Picture& picture, const Area& box, int firstRow, int rows)
{
    std::uint64_t bits = 0;
    for (int index = 0; index < rows * kColumns; ++index) {
        const Area cell = cellOf(box, index % kColumns, firstRow + index / kColumns);
        const Rgb middle = picture.pixel(cell.left + cell.width / 2, cell.top + cell.height / 2);
        bits = bits << 1 | (brightness(middle) > kBetweenBits ? 1U : 0U);
    }
    return bits;
}

// How many pixels from (x, y) on in steps of (dx, dy) are black.
int blackFrom(const Picture& picture, int x, int y, int dx, int dy, int count)
{
    int black = 0;
    while (black < count &&
           brightness(picture.pixel(x + black * dx, y + black * dy)) < kEdgeBrightness) {
        ++black;
    }
    return black;
}

// The picture lies in the middle, so that lines through the frame's middle meet its edges.
Area findBox(const Picture& picture)
{
    const int width = picture.width();
    const int height = picture.height();
    const int left = blackFrom(picture, 0, height / 2, 1, 0, width);
    const int right = blackFrom(picture, width - 1, height / 2, -1, 0, width - left);
    const int top = blackFrom(picture, width / 2, 0, 0, 1, height);
    const int bottom = blackFrom(picture, width / 2, height - 1, 0, -1, height - top);
    return {left, top, width - left - right, height - top - bottom};
}

int difference(const Rgb& one, const Rgb& other)
{
    return std::max({std::abs(one.red - other.red), std::abs(one.green - other.green),
                     std::abs(one.blue - other.blue)});
}

// The brightest point of a bar, but for the pixels that touch the picture.
int barBrightness(const Picture& picture, const Area& bar)
{
    constexpr int kStep = 7;
    int brightest = 0;
    for (int y = bar.top; y < bar.top + bar.height; y += kStep) {
        for (int x = bar.left; x < bar.left + bar.width; x += kStep) {
            brightest = std::max(brightest, difference(picture.pixel(x, y), {}));
        }
    }
    return brightest;
}

int barsBrightness(const Picture& picture, const Area& box)
{
    constexpr int kMargin = 3;
    const int right = box.left + box.width + kMargin;
    const int bottom = box.top + box.height + kMargin;
    return std::max(
        {barBrightness(picture, {0, 0, box.left - kMargin, picture.height()}),
         barBrightness(picture, {right, 0, picture.width() - right, picture.height()}),
         barBrightness(picture, {0, 0, picture.width(), box.top - kMargin}),
         barBrightness(picture, {0, bottom, picture.width(), picture.height() - bottom})});
}

} // namespace

TestPicture::TestPicture(int width, int height)
    : m_width(width)
    , m_height(height)
    , m_pixels(std::size_t{3} * static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
{
    for (int index = 0; index < static_cast<int>(kTestColours.size()); ++index) {
        fill(colourArea({0, 0, width, height}, index),
             kTestColours[static_cast<std::size_t>(index)]);
    }
}

void TestPicture::label(std::uint32_t number, std::uint32_t stamp)
{
    labelBy(number, [stamp] { return stamp; });
}

void TestPicture::labelBy(std::uint32_t number, const std::function<std::uint32_t()>& stamp)
{
    const std::uint64_t number24 = number & kLabelMask;
    writeBits(kFirstBottomRow,
              (number24 & 0xFFFF) << 32 | static_cast<std::uint64_t>(m_width) << 16 |
                  static_cast<std::uint64_t>(m_height),
              kBottomRows * kColumns);
    const std::uint32_t stamp24 = stamp() & kLabelMask;
    writeBits(
        0, number24 << 40 | std::uint64_t{stamp24} << 16 | checksum(number & kLabelMask, stamp24),
        kTopRows * kColumns);
}

void TestPicture::writeBits(int firstRow, std::uint64_t bits, int count)
{
    for (int index = 0; index < count; ++index) {
        const bool set = (bits >> (count - 1 - index) & 1U) != 0;
        fill(cellOf({0, 0, m_width, m_height}, index % kColumns, firstRow + index / kColumns),
             set ? kOne : kZero);
    }
}

void TestPicture::fill(const Area& area, const Rgb& colour)
{
    const std::size_t stride = std::size_t{3} * static_cast<std::size_t>(m_width);
    const std::array bytes{static_cast<std::uint8_t>(colour.blue),
                           static_cast<std::uint8_t>(colour.green),
                           static_cast<std::uint8_t>(colour.red)};
    std::uint8_t* const first = m_pixels.data() + static_cast<std::size_t>(area.top) * stride +
                                std::size_t{3} * static_cast<std::size_t>(area.left);
    const std::size_t length = std::size_t{3} * static_cast<std::size_t>(area.width);
    for (std::size_t at = 0; at < length; ++at) {
        first[at] = bytes[at % 3];
    }
    for (int row = 1; row < area.height; ++row) {
        std::copy_n(first, length, first + static_cast<std::size_t>(row) * stride);
    }
}

Reading readPicture(const Picture& picture)
{
    Reading reading{.kind = PictureKind::Other, .label = {}, .box = findBox(picture)};
    if (reading.box.width < kColumns || reading.box.height < kRows) {
        return reading;
    }
    const std::uint64_t top = readBits(picture, reading.box, 0, kTopRows);
    const auto number = static_cast<std::uint32_t>(top >> 40) & kLabelMask;
    const auto stamp = static_cast<std::uint32_t>(top >> 16) & kLabelMask;
    if (checksum(number, stamp) != (top & 0xFFFF)) {
        return reading;
    }
    const std::uint64_t bottom = readBits(picture, reading.box, kFirstBottomRow, kBottomRows);
    reading.label = {number, stamp, static_cast<int>(bottom >> 16 & 0xFFFF),
                     static_cast<int>(bottom & 0xFFFF)};
    reading.kind = (bottom >> 32) == (number & 0xFFFF) ? PictureKind::Live : PictureKind::Torn;
    return reading;
}

Area expectedBox(const PictureLabel& label, int width, int height)
{
    if (label.width <= 0 || label.height <= 0) {
        return {0, 0, width, height};
    }
    const bool fillsWidth =
        std::int64_t{label.width} * height >= std::int64_t{label.height} * width;
    const int boxWidth = fillsWidth ? width : height * label.width / label.height;
    const int boxHeight = fillsWidth ? width * label.height / label.width : height;
    return {(width - boxWidth) / 2, (height - boxHeight) / 2, boxWidth, boxHeight};
}

Differences compare(const Picture& picture, const Reading& reading)
{
    const Area expected = expectedBox(reading.label, picture.width(), picture.height());
    const Area& box = reading.box;
    Differences differences;
    differences.box =
        std::max({std::abs(box.left - expected.left), std::abs(box.top - expected.top),
                  std::abs(box.left + box.width - expected.left - expected.width),
                  std::abs(box.top + box.height - expected.top - expected.height)});
    for (int index = 0; index < static_cast<int>(kTestColours.size()); ++index) {
        const Rgb mean = meanColour(picture, middleOf(colourArea(box, index)));
        differences.colours = std::max(
            differences.colours, difference(mean, kTestColours[static_cast<std::size_t>(index)]));
    }
    differences.bars = barsBrightness(picture, box);
    return differences;
}

Rgb meanColour(const Picture& picture, const Area& area)
{
    constexpr int kPoints = 8; // a side
    Rgb sum;
    for (int index = 0; index < kPoints * kPoints; ++index) {
        const int x = area.left + area.width * (index % kPoints) / kPoints;
        const int y = area.top + area.height * (index / kPoints) / kPoints;
        const Rgb pixel = picture.pixel(std::clamp(x, 0, picture.width() - 1),
                                        std::clamp(y, 0, picture.height() - 1));
        sum.red += pixel.red;
        sum.green += pixel.green;
        sum.blue += pixel.blue;
    }
    constexpr int kCount = kPoints * kPoints;
    return {(sum.red + kCount / 2) / kCount, (sum.green + kCount / 2) / kCount,
            (sum.blue + kCount / 2) / kCount};
}

} // namespace pevrix
