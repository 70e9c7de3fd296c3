#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pevrix {

// A decoded 8-bit 4:2:0 picture in memory that somebody else owns. Strides are in bytes and may
// exceed the row. A plane of odd width or height has its last chroma column or row in full:
// (width + 1) / 2 samples in each of (height + 1) / 2 rows.
struct Nv12Picture
{
    const std::uint8_t* y = nullptr;
    const std::uint8_t* uv = nullptr; // U first, V next
    std::ptrdiff_t yStride = 0;
    std::ptrdiff_t uvStride = 0;
    int width = 0;
    int height = 0;
};

struct I420Picture
{
    const std::uint8_t* y = nullptr;
    const std::uint8_t* u = nullptr;
    const std::uint8_t* v = nullptr;
    std::ptrdiff_t yStride = 0;
    std::ptrdiff_t uvStride = 0; // of u and of v
    int width = 0;
    int height = 0;
};

// The ways to compute the same bytes; which of them this machine has is a matter of its CPU.
enum class ColorKernel
{
    None,
    Scalar,
    Sse41,
    Avx2
};

// The kernels that this CPU can run, slowest first.
[[nodiscard]] std::vector<ColorKernel> availableColorKernels();

// Writes width * height * 3 bytes: blue, green, red, top row first, no padding. With C = Y - 16,
// D = U - 128, E = V - 128 (BT.601, limited range), each clamped to 0..255:
//   B = (298 C + 516 D + 128) >> 8
//   G = (298 C - 100 D - 208 E + 128) >> 8
//   R = (298 C + 409 E + 128) >> 8
// The pixel at (x, y) takes the chroma sample at (x / 2, y / 2). Every kernel gives exactly these
// bytes. Callable from any thread; no allocation; an empty picture writes nothing. `kernel` must be
// one of availableColorKernels(); the versions without it use the fastest.
void convertToBgr(const Nv12Picture& picture, std::uint8_t* bgr);
void convertToBgr(const I420Picture& picture, std::uint8_t* bgr);
void convertToBgr(const Nv12Picture& picture, std::uint8_t* bgr, ColorKernel kernel);
void convertToBgr(const I420Picture& picture, std::uint8_t* bgr, ColorKernel kernel);

} // namespace pevrix
