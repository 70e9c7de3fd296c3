#include "video/ColorConversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

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
    std::size_t width;
    std::size_t height;
    std::size_t offset;
    std::size_t padding;
    std::size_t lumaStride = width + padding;
    std::size_t chromaWidth = (width + 1) / 2;
    std::size_t chromaHeight = (height + 1) / 2;
    std::size_t chromaStride = chromaWidth + padding;
    Bytes y = Bytes(offset + lumaStride * (height - 1) + width);
    Bytes u = Bytes(offset + chromaStride * (chromaHeight - 1) + chromaWidth);
    Bytes v = u;
    Bytes uv = Bytes(offset + 2 * chromaStride * (chromaHeight - 1) + 2 * chromaWidth);

    void fill(std::mt19937& random)
    {
        for (Bytes* plane : {&y, &u, &v}) {
            std::generate(plane->begin(), plane->end(),
                          [&] { return static_cast<std::uint8_t>(random()); });
        }
    }

    void interleave()
    {
        for (std::size_t line = 0; line < chromaHeight; ++line) {
            for (std::size_t x = 0; x < chromaWidth; ++x) {
                const std::size_t from = offset + line * chromaStride + x;
                const std::size_t to = offset + line * 2 * chromaStride + 2 * x;
                uv[to] = u[from];
                uv[to + 1] = v[from];
            }
        }
    }

    Bytes expected() const
    {
        Bytes out(3 * width * height);
        std::uint8_t* pixel = out.data();
        for (std::size_t line = 0; line < height; ++line) {
            const std::uint8_t* luma = y.data() + offset + line * lumaStride;
            const std::size_t chroma = offset + line / 2 * chromaStride;
            for (std::size_t x = 0; x < width; ++x, pixel += 3) {
                writeExpected(pixel, luma[x], u[chroma + x / 2], v[chroma + x / 2]);
            }
        }
        return out;
    }
};

// Every kernel, from both layouts, into blocks that end with the picture.
void expectExact(Planes& planes)
{
    planes.interleave();
    const Bytes expected = planes.expected();
    const auto stride = static_cast<std::ptrdiff_t>(planes.lumaStride);
    const auto half = static_cast<std::ptrdiff_t>(planes.chromaStride);
    const auto width = static_cast<int>(planes.width);
    const auto height = static_cast<int>(planes.height);
    const std::uint8_t* y = planes.y.data() + planes.offset;
    for (const ColorKernel kernel : availableColorKernels()) {
        SCOPED_TRACE(static_cast<int>(kernel));
        Bytes bgr(expected.size());
        convertToBgr(I420Picture{y, planes.u.data() + planes.offset,
                                 planes.v.data() + planes.offset, stride, half, width, height},
                     bgr.data(), kernel);
        ASSERT_TRUE(bgr == expected) << "planar";
        bgr.assign(bgr.size(), 0);
        convertToBgr(
            Nv12Picture{y, planes.uv.data() + planes.offset, stride, 2 * half, width, height},
            bgr.data(), kernel);
        ASSERT_TRUE(bgr == expected) << "interleaved";
    }
}

// Each Y with each U and each V, and with both where one of them is a multiple of 17: blue and red
// depend on two samples, and green on the sum of what they make of it.
TEST(ColorConversion, EveryKernelIsExactForEveryColour)
{
    // A row pair for each value of one chroma plane; the upper row has each Y in turn, the lower
    // one in reverse, so that each stands in even and in odd columns.
    Planes planes{256, 512, 0, 0};
    for (std::size_t i = 0; i < planes.y.size(); ++i) {
        planes.y[i] = static_cast<std::uint8_t>((i >> 8) % 2 == 0 ? i : 255 - i % 256);
    }
    for (const bool swapped : {false, true}) {
        Bytes& every = swapped ? planes.u : planes.v;
        Bytes& fixed = swapped ? planes.v : planes.u;
        for (std::size_t i = 0; i < every.size(); ++i) {
            every[i] = static_cast<std::uint8_t>(i / 128);
        }
        for (int value = 0; value < 256; value += 17) {
            std::fill(fixed.begin(), fixed.end(), static_cast<std::uint8_t>(value));
            SCOPED_TRACE(testing::Message() << (swapped ? "V " : "U ") << value);
            ASSERT_NO_FATAL_FAILURE(expectExact(planes));
        }
    }
}

TEST(ColorConversion, EveryKernelIsExactForEverySizeStrideAndAlignment)
{
    std::mt19937 random(1);
    for (std::size_t width = 1; width <= 130; ++width) {
        for (const std::size_t height : {1U, 2U, 3U, 8U}) {
            Planes planes{width, height, random() % 32, random() % 2 * (random() % 40)};
            planes.fill(random);
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            ASSERT_NO_FATAL_FAILURE(expectExact(planes));
        }
    }
}

} // namespace
} // namespace pevrix
