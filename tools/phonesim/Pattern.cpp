#include "tools/phonesim/Pattern.h"

#include "tools/phonesim/PatternText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

namespace pevrix {

namespace {

constexpr Yuv kBlack{16, 128, 128};
constexpr Yuv kWhite{235, 128, 128};
constexpr Yuv kOrange{150, 54, 190};

// The eight bars at 75 %: white, yellow, cyan, green, magenta, red, blue, black.
constexpr std::array<Yuv, 8> kBars{{{180, 128, 128},
                                    {162, 44, 142},
                                    {131, 156, 44},
                                    {112, 72, 58},
                                    {84, 184, 198},
                                    {65, 100, 212},
                                    {35, 212, 114},
                                    {16, 128, 128}}};
constexpr int kRampSteps = 16;
constexpr int kCounterDigits = 6;
constexpr std::int64_t kCounterModulus = 1'000'000;

int even(int value)
{
    return value & ~1;
}

// The rows above the ramp: three quarters of the picture.
int rampTop(int height)
{
    return even(height * 3 / 4);
}

// A point that runs from 0 to `range` and back, `step` pixels a frame.
int bounce(std::int64_t number, int step, int range)
{
    if (range <= 0) {
        return 0;
    }
    const std::int64_t period = std::int64_t{2} * range;
    const auto phase = static_cast<int>(number % period * step % period);
    return phase < range ? phase : 2 * range - phase;
}

// A well-mixed number from any number, so that neighbours have nothing in common.
std::uint32_t mix(std::uint32_t value)
{
    value = (value ^ (value >> 16)) * 0x7FEB352DU;
    value = (value ^ (value >> 15)) * 0x846CA68BU;
    return value ^ (value >> 16);
}

// Rows of noise begin at different places of this much noise.
constexpr std::uint32_t kNoiseStarts = 65'536;

std::vector<std::uint8_t> makeNoise(int level)
{
    std::vector<std::uint8_t> noise(kNoiseStarts + Pattern::kMaxSize);
    const auto range = static_cast<std::uint32_t>(2 * level + 1);
    for (std::size_t i = 0; i < noise.size(); ++i) {
        const auto value = static_cast<int>(mix(static_cast<std::uint32_t>(i)) % range) - level;
        noise[i] = static_cast<std::uint8_t>(value);
    }
    return noise;
}

} // namespace

Pattern::Pattern(int width, int height, int noise)
    : m_width(std::clamp(even(width), kMinSize, kMaxSize))
    , m_height(std::clamp(even(height), kMinSize, kMaxSize))
    , m_background(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height) * 3 / 2)
{
    drawBackground(background());
    if (noise > 0) {
        m_noise = makeNoise(std::min(noise, kMaxNoise));
    }
}

PictureView Pattern::background()
{
    const auto luma = static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height);
    std::uint8_t* start = m_background.data();
    return {start, start + luma, start + luma + luma / 4, m_width, m_width / 2, m_width, m_height};
}

void Pattern::drawBackground(const PictureView& picture) const
{
    const int top = rampTop(m_height);
    for (int bar = 0; bar < 8; ++bar) {
        const int left = even(m_width * bar / 8);
        const int right = even(m_width * (bar + 1) / 8);
        fillRect(picture, {left, 0, right - left, top}, kBars[static_cast<std::size_t>(bar)]);
    }
    for (int step = 0; step < kRampSteps; ++step) {
        const int left = even(m_width * step / kRampSteps);
        const int right = even(m_width * (step + 1) / kRampSteps);
        const auto luma = static_cast<std::uint8_t>(16 + 219 * step / (kRampSteps - 1));
        fillRect(picture, {left, top, right - left, m_height - top}, {luma, 128, 128});
    }
}

void Pattern::draw(std::int64_t number, const PictureView& picture) const
{
    copyBackground(picture);
    drawBox(number, picture);
    drawDisc(number, picture);
    drawTexts(number, picture);
    if (!m_noise.empty()) {
        addNoise(number, picture);
    }
}

void Pattern::copyBackground(const PictureView& picture) const
{
    const auto copyPlane = [](std::uint8_t* to, std::ptrdiff_t stride, const std::uint8_t* from,
                              int width, int height) {
        for (int row = 0; row < height; ++row) {
            std::memcpy(to + row * stride, from + static_cast<std::ptrdiff_t>(row) * width,
                        static_cast<std::size_t>(width));
        }
    };
    const auto luma = static_cast<std::ptrdiff_t>(m_width) * m_height;
    const std::uint8_t* start = m_background.data();
    copyPlane(picture.y, picture.strideY, start, m_width, m_height);
    copyPlane(picture.u, picture.strideC, start + luma, m_width / 2, m_height / 2);
    copyPlane(picture.v, picture.strideC, start + luma + luma / 4, m_width / 2, m_height / 2);
}

void Pattern::drawBox(std::int64_t number, const PictureView& picture) const
{
    const int top = rampTop(m_height);
    const int side = even((m_height - top) / 2);
    const int x = even(bounce(number, std::max(2, m_width / 160), m_width - side));
    const int y = even(top + (m_height - top - side) / 2);
    fillRect(picture, {x, y, side, side}, kBlack);
    const int border = std::max(2, even(side / 6));
    fillRect(picture, {x + border, y + border, side - 2 * border, side - 2 * border}, kOrange);
}

void Pattern::drawDisc(std::int64_t number, const PictureView& picture) const
{
    const int radius = std::max(4, even(std::min(m_width, m_height) / 12));
    const int x = bounce(number, std::max(2, m_width / 180), m_width - 2 * radius);
    const int y = bounce(number, std::max(2, m_height / 120), rampTop(m_height) - 2 * radius);
    fillDisc(picture, even(x) + radius, even(y) + radius, radius, kWhite);
}

void Pattern::drawTexts(std::int64_t number, const PictureView& picture) const
{
    std::string counter = std::to_string(number % kCounterModulus);
    counter.insert(0, static_cast<std::size_t>(kCounterDigits) - counter.size(), '0');
    const std::string size = std::to_string(m_width) + "x" + std::to_string(m_height);

    // The counter takes about half of the width, the size text a third of the counter's height.
    const int cell = std::max(2, even(std::min(m_width / (2 * textCells(counter)), m_height / 24)));
    const int small = std::max(2, even(cell / 3));
    const int counterTop = even(m_height / 4);
    drawText(picture, counter, m_width / 2, counterTop, cell, kWhite, kBlack);
    drawText(picture, size, m_width / 2, counterTop + textHeight(cell), small, kWhite, kBlack);
}

// The luma of every colour drawn keeps kMaxNoise away from both ends, so the sums cannot wrap.
void Pattern::addNoise(std::int64_t number, const PictureView& picture) const
{
    const std::uint32_t seed = mix(static_cast<std::uint32_t>(number));
    for (int row = 0; row < m_height; ++row) {
        const std::uint32_t start = mix(seed + static_cast<std::uint32_t>(row)) % kNoiseStarts;
        const std::uint8_t* noise = m_noise.data() + start;
        std::uint8_t* luma = picture.y + row * picture.strideY;
        for (int column = 0; column < m_width; ++column) {
            luma[column] = static_cast<std::uint8_t>(luma[column] + noise[column]);
        }
    }
}

} // namespace pevrix
