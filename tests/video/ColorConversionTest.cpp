#include "video/ColorConversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>

namespace pevrix {
namespace {

using Bytes = std::vector<std::uint8_t>;

// The formula as it is written down, apart from the code under test.
void writeExpected(std::uint8_t* bgr, int y, int u, int v)
{
    const int c = y - 16;
    const int d = u - 128;
    const int e = v - 128;
    const auto clamp = [](int value) {
        return static_cast<std::uint8_t>(std::clamp(value >> 8, 0, 255));
    };
    bgr[0] = clamp(298 * c + 516 * d + 128);
    bgr[1] = clamp(298 * c - 100 * d - 208 * e + 128);
    bgr[2] = clamp(298 * c + 409 * e + 128);
}

// A picture whose planes are separate heap blocks that end with the last sample, so that the
// address sanitizer sees the first byte read beyond them; `offset` misaligns them.
struct Planes
{
    int width;
    int height;
    std::size_t offset;
    std::size_t padding;
    Bytes y, u, v, uv;

    Planes(int w, int h, std::size_t misalignment, std::size_t rowPadding)
        : width(w)
        , height(h)
        , offset(misalignment)
        , padding(rowPadding)
        , y(bytes(lumaStride(), rows(h), row(w)))
        , u(bytes(chromaStride(), rows((h + 1) / 2), row((w + 1) / 2)))
        , v(u)
        , uv(bytes(2 * chromaStride(), rows((h + 1) / 2), 2 * row((w + 1) / 2)))
    {}

    static std::size_t row(int samples) { return static_cast<std::size_t>(samples); }
    static std::size_t rows(int count) { return static_cast<std::size_t>(count); }
    std::size_t lumaStride() const { return row(width) + padding; }
    std::size_t chromaStride() const { return row((width + 1) / 2) + padding; }
    Bytes bytes(std::size_t stride, std::size_t count, std::size_t last) const
    {
        return Bytes(offset + stride * (count - 1) + last);
    }

    void fill(std::mt19937& random)
    {
        const auto randomByte = [&] {
            return static_cast<std::uint8_t>(random());
        };
        std::generate(y.begin(), y.end(), randomByte);
        std::generate(u.begin(), u.end(), randomByte);
        std::generate(v.begin(), v.end(), randomByte);
        interleave();
    }

    void interleave()
    {
        for (std::size_t line = 0; line < rows((height + 1) / 2); ++line) {
            for (std::size_t x = 0; x < row((width + 1) / 2); ++x) {
                const std::size_t from = offset + line * chromaStride() + x;
                const std::size_t to = offset + line * 2 * chromaStride() + 2 * x;
                uv[to] = u[from];
                uv[to + 1] = v[from];
            }
        }
    }

    Bytes expected() const
    {
        Bytes out(3 * row(width) * rows(height));
        std::uint8_t* pixel = out.data();
        for (int line = 0; line < height; ++line) {
            const std::uint8_t* luma = y.data() + offset + rows(line) * lumaStride();
            const std::size_t chroma = offset + rows(line / 2) * chromaStride();
            for (int x = 0; x < width; ++x, pixel += 3) {
                writeExpected(pixel, luma[x], u[chroma + row(x / 2)], v[chroma + row(x / 2)]);
            }
        }
        return out;
    }

    // Both layouts, each into a block that ends with the picture.
    std::pair<Bytes, Bytes> converted(ColorKernel kernel) const
    {
        Bytes planar(3 * row(width) * rows(height));
        Bytes interleaved(planar.size());
        const auto stride = static_cast<std::ptrdiff_t>(lumaStride());
        const auto half = static_cast<std::ptrdiff_t>(chromaStride());
        convertToBgr(I420Picture{y.data() + offset, u.data() + offset, v.data() + offset, stride,
                                 half, width, height},
                     planar.data(), kernel);
        convertToBgr(
            Nv12Picture{y.data() + offset, uv.data() + offset, stride, 2 * half, width, height},
            interleaved.data(), kernel);
        return {planar, interleaved};
    }
};

TEST(ColorConversion, EveryKernelIsExactForEveryColour)
{
    // One picture for each U; a row pair for each V; the upper row has each Y in turn, the lower
    // one in reverse, so that each stands in even and in odd columns.
    Planes planes(256, 512, 0, 0);
    for (std::size_t i = 0; i < planes.y.size(); ++i) {
        planes.y[i] = static_cast<std::uint8_t>((i >> 8) % 2 == 0 ? i : 255 - i % 256);
    }
    for (std::size_t i = 0; i < planes.v.size(); ++i) {
        planes.v[i] = static_cast<std::uint8_t>(i / 128);
    }
    for (int u = 0; u < 256; ++u) {
        std::fill(planes.u.begin(), planes.u.end(), static_cast<std::uint8_t>(u));
        planes.interleave();
        const Bytes expected = planes.expected();
        for (const ColorKernel kernel : availableColorKernels()) {
            SCOPED_TRACE(testing::Message()
                         << "kernel " << static_cast<int>(kernel) << ", U " << u);
            const auto [planar, interleaved] = planes.converted(kernel);
            ASSERT_TRUE(planar == expected);
            ASSERT_TRUE(interleaved == expected);
        }
    }
}

TEST(ColorConversion, EveryKernelIsExactForEverySizeStrideAndAlignment)
{
    std::mt19937 random(1);
    for (int width = 1; width <= 130; ++width) {
        for (const int height : {1, 2, 3, 8}) {
            Planes planes(width, height, random() % 32, random() % 2 * (random() % 40));
            planes.fill(random);
            const Bytes expected = planes.expected();
            for (const ColorKernel kernel : availableColorKernels()) {
                SCOPED_TRACE(testing::Message() << "kernel " << static_cast<int>(kernel) << ", "
                                                << width << " x " << height);
                const auto [planar, interleaved] = planes.converted(kernel);
                ASSERT_TRUE(planar == expected);
                ASSERT_TRUE(interleaved == expected);
            }
        }
    }
}

} // namespace
} // namespace pevrix
