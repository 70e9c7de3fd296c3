#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace pevrix {

struct Rgb
{
    int red = 0;
    int green = 0;
    int blue = 0;
};

// A rectangle of pixels.
struct Area
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

// What is written into a test picture, and read back from whatever became of it.
struct PictureLabel
{
    std::uint32_t number = 0; // counts the pictures of a sender; 24 bits
    std::uint32_t stamp = 0;  // when it was sent, in kStampUnits; 24 bits, then it starts anew
    int width = 0;            // of the picture as it was sent
    int height = 0;
};

inline constexpr std::uint32_t kLabelMask = 0xFF'FFFF;
inline constexpr int kStampUnitsPerSecond = 100'000; // 24 bits last for 167 seconds

// A test picture is a grid of 16 x 12 cells. Four rows of cells at the top are the label's bits,
// number, stamp and checksum; three at the bottom repeat the number and give the size. Between them
// lie eight colours. No cell is black, so that a picture's edge shows against bars.
//
//     | number 24 | stamp 24 | sum 16 |
//     | colour 0 | 1 | 2 | 3          |
//     | colour 4 | 5 | 6 | 7          |
//     | number 16 | width 16 | height |
class TestPicture
{
public:
    TestPicture(int width, int height);

    // Writes number and stamp; the colours stay.
    void label(std::uint32_t number, std::uint32_t stamp);

    // The same with a stamp that is asked for when most is drawn.
    void labelBy(std::uint32_t number, const std::function<std::uint32_t()>& stamp);

    // Blue, green, red; top row first, no padding.
    [[nodiscard]] const std::uint8_t* pixels() const { return m_pixels.data(); }

private:
    void fill(const Area& area, const Rgb& colour);
    void writeBits(int firstRow, std::uint64_t bits, int count);

    int m_width;
    int m_height;
    std::vector<std::uint8_t> m_pixels;
};

inline constexpr std::array<Rgb, 8> kTestColours{{{200, 30, 40},
                                                  {30, 180, 60},
                                                  {40, 60, 200},
                                                  {220, 200, 40},
                                                  {60, 190, 200},
                                                  {190, 60, 180},
                                                  {128, 128, 128},
                                                  {235, 235, 235}}};

// A picture as a reader gets it: any layout behind one way of asking for a pixel.
class Picture
{
public:
    virtual ~Picture() = default;
    [[nodiscard]] virtual int width() const = 0;
    [[nodiscard]] virtual int height() const = 0;
    [[nodiscard]] virtual Rgb pixel(int x, int y) const = 0;
};

enum class PictureKind
{
    None,
    Live,  // a whole test picture
    Torn,  // its halves are of different ones
    Other, // no test picture: a card, say
};

struct Reading
{
    PictureKind kind = PictureKind::None;
    PictureLabel label; // of a live picture
    Area box;           // where it is not black
};

// Reads the label. Cheap enough for every picture.
[[nodiscard]] Reading readPicture(const Picture& picture);

// Where a sent picture of that size belongs: as large as it fits, in the middle.
[[nodiscard]] Area expectedBox(const PictureLabel& label, int width, int height);

// The greatest difference of any component to a test picture's colours, and of a bar to black.
struct Differences
{
    int colours = 0;
    int bars = 0;
    int box = 0; // pixels by which an edge is off its place
};
[[nodiscard]] Differences compare(const Picture& picture, const Reading& reading);

// The mean colour around a point.
[[nodiscard]] Rgb meanColour(const Picture& picture, const Area& area);

} // namespace pevrix
