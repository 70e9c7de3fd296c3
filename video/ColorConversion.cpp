#include "video/ColorConversion.h"

#include "video/ColorKernels.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace pevrix {

namespace {

std::uint8_t clampToByte(int value)
{
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

void writePixel(std::uint8_t* bgr, int y, int u, int v)
{
    const int c = 298 * (y - 16) + 128;
    const int d = u - 128;
    const int e = v - 128;
    bgr[0] = clampToByte((c + 516 * d) >> 8);
    bgr[1] = clampToByte((c - 100 * d - 208 * e) >> 8);
    bgr[2] = clampToByte((c + 409 * e) >> 8);
}

void convertInterleaved(const ColorRowPair& rows, std::ptrdiff_t width)
{
    for (int row = 0; row < 2; ++row) {
        for (std::ptrdiff_t x = 0; x < width; ++x) {
            const std::uint8_t* uv = rows.chroma[0] + (x & ~1);
            writePixel(rows.bgr[row] + 3 * x, rows.y[row][x], uv[0], uv[1]);
        }
    }
}

void convertPlanar(const ColorRowPair& rows, std::ptrdiff_t width)
{
    for (int row = 0; row < 2; ++row) {
        for (std::ptrdiff_t x = 0; x < width; ++x) {
            writePixel(rows.bgr[row] + 3 * x, rows.y[row][x], rows.chroma[0][x / 2],
                       rows.chroma[1][x / 2]);
        }
    }
}

const ColorRowKernels& rowKernels([[maybe_unused]] ColorKernel kernel)
{
#ifdef PEVRIX_X86_KERNELS
    if (kernel == ColorKernel::Avx2) {
        return kAvx2RowKernels;
    }
    if (kernel == ColorKernel::Sse41) {
        return kSse41RowKernels;
    }
#endif
    return kScalarRowKernels;
}

ColorKernel fastestKernel()
{
    static const ColorKernel fastest = availableColorKernels().back();
    return fastest;
}

// The last pixels of a row pair, fewer than a block, go through a padded copy: a kernel always
// handles whole blocks, and nothing beyond the picture is read or written.
void convertTail(ConvertRowPair convert, std::ptrdiff_t block, const ColorRowPair& rows,
                 std::ptrdiff_t start, std::ptrdiff_t pixels)
{
    struct
    {
        std::array<std::uint8_t, kMaxColorBlockPixels> y[2]{};
        std::array<std::uint8_t, kMaxColorBlockPixels> chroma[2]{};
        std::array<std::uint8_t, kMaxColorBlockPixels * 3> bgr[2];
    } tail;

    const auto length = static_cast<std::size_t>(pixels);
    const bool interleaved = rows.chroma[1] == nullptr;
    const auto samples = (length + 1) / 2;
    for (std::size_t i = 0; i < 2; ++i) {
        std::memcpy(tail.y[i].data(), rows.y[i] + start, length);
    }
    if (interleaved) {
        std::memcpy(tail.chroma[0].data(), rows.chroma[0] + start, 2 * samples);
    } else {
        std::memcpy(tail.chroma[0].data(), rows.chroma[0] + start / 2, samples);
        std::memcpy(tail.chroma[1].data(), rows.chroma[1] + start / 2, samples);
    }
    convert({{tail.y[0].data(), tail.y[1].data()},
             {tail.chroma[0].data(), tail.chroma[1].data()},
             {tail.bgr[0].data(), tail.bgr[1].data()}},
            block);
    for (std::size_t i = 0; i < 2; ++i) {
        std::memcpy(rows.bgr[i] + 3 * start, tail.bgr[i].data(), 3 * length);
    }
}

// `chromaAt` gives the two chroma rows of a row number.
template <typename Picture, typename ChromaAt>
void convertPicture(const Picture& picture, std::uint8_t* bgr, ConvertRowPair convert,
                    std::ptrdiff_t block, ChromaAt chromaAt)
{
    if (picture.width < 1) {
        return;
    }
    const std::ptrdiff_t width = picture.width;
    const std::ptrdiff_t rest = width % block;
    const std::ptrdiff_t bgrStride = 3 * width;
    for (int upper = 0; upper < picture.height; upper += 2) {
        const int lower = std::min(upper + 1, picture.height - 1);
        const auto [u, v] = chromaAt(upper / 2);
        const ColorRowPair rows = {
            {picture.y + upper * picture.yStride, picture.y + lower * picture.yStride},
            {u, v},
            {bgr + upper * bgrStride, bgr + lower * bgrStride}};
        convert(rows, width);
        if (rest != 0) {
            convertTail(convert, block, rows, width - rest, rest);
        }
    }
}

} // namespace

const ColorRowKernels kScalarRowKernels = {1, convertInterleaved, convertPlanar};

std::vector<ColorKernel> availableColorKernels()
{
    std::vector<ColorKernel> kernels = {ColorKernel::Scalar};
#ifdef PEVRIX_X86_KERNELS
    if (__builtin_cpu_supports("sse4.1")) {
        kernels.push_back(ColorKernel::Sse41);
    }
    if (__builtin_cpu_supports("avx2")) {
        kernels.push_back(ColorKernel::Avx2);
    }
#endif
    return kernels;
}

void convertToBgr(const Nv12Picture& picture, std::uint8_t* bgr, ColorKernel kernel)
{
    const ColorRowKernels& kernels = rowKernels(kernel);
    convertPicture(picture, bgr, kernels.interleaved, kernels.blockPixels, [&](int row) {
        const std::uint8_t* uv = picture.uv + row * picture.uvStride;
        return std::pair<const std::uint8_t*, const std::uint8_t*>(uv, nullptr);
    });
}

void convertToBgr(const I420Picture& picture, std::uint8_t* bgr, ColorKernel kernel)
{
    const ColorRowKernels& kernels = rowKernels(kernel);
    convertPicture(picture, bgr, kernels.planar, kernels.blockPixels, [&](int row) {
        const std::ptrdiff_t offset = row * picture.uvStride;
        return std::pair(picture.u + offset, picture.v + offset);
    });
}

void convertToBgr(const Nv12Picture& picture, std::uint8_t* bgr)
{
    convertToBgr(picture, bgr, fastestKernel());
}

void convertToBgr(const I420Picture& picture, std::uint8_t* bgr)
{
    convertToBgr(picture, bgr, fastestKernel());
}

} // namespace pevrix
