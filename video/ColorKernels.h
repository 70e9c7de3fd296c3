#pragma once

#include <cstddef>
#include <cstdint>

namespace pevrix {

// Two luma rows that share their chroma, and where their pixels go. The second row may be the
// first once more (the last row of a picture of odd height).
struct ColorRowPair
{
    const std::uint8_t* y[2];
    const std::uint8_t* chroma[2]; // U and V; interleaved: both in the first, the second is null
    std::uint8_t* bgr[2];
};

// Converts the first pixels of a row pair, as many whole blocks as `width` holds; the caller takes
// care of the rest. Reads and writes nothing beyond those blocks.
using ConvertRowPair = void (*)(const ColorRowPair& rows, std::ptrdiff_t width);

inline constexpr std::size_t kMaxColorBlockPixels = 32;

struct ColorRowKernels
{
    std::ptrdiff_t blockPixels; // at most kMaxColorBlockPixels
    ConvertRowPair interleaved;
    ConvertRowPair planar;
};

extern const ColorRowKernels kScalarRowKernels;
extern const ColorRowKernels kSse41RowKernels; // x86 only
extern const ColorRowKernels kAvx2RowKernels;  // x86 only

} // namespace pevrix
