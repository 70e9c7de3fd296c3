#pragma once

#include "video/ColorKernels.h"

namespace pevrix {

// Plain arrays: a library template instantiated in a file with its own instruction set could be the
// copy that the whole program ends up with.
struct Bytes16
{
    std::uint8_t at[16];
};

// Byte k of 48 interleaved ones is channel k % 3 of pixel k / 3. As 16 is 1 modulo 3, a channel
// puts exactly one byte at each place of the three 16-byte vectors that make the 48, each in one of
// them: one shuffle per channel brings its bytes to their places, and blends pick among channels.
// A channel comes with its 8 even pixels first, then the 8 odd ones.
constexpr Bytes16 interleaveShuffle(unsigned channel)
{
    Bytes16 shuffle{};
    for (unsigned place = 0; place < 16; ++place) {
        const unsigned vector = (channel + 2 * place) % 3;
        const unsigned pixel = (16 * vector + place) / 3;
        shuffle.at[place] = static_cast<std::uint8_t>(pixel / 2 + pixel % 2 * 8);
    }
    return shuffle;
}

// Set where place % 3 == remainder.
constexpr Bytes16 everyThird(unsigned remainder)
{
    Bytes16 mask{};
    for (unsigned place = remainder; place < 16; place += 3) {
        mask.at[place] = 0xff;
    }
    return mask;
}

inline constexpr auto kBlueShuffle = interleaveShuffle(0);
inline constexpr auto kGreenShuffle = interleaveShuffle(1);
inline constexpr auto kRedShuffle = interleaveShuffle(2);
inline constexpr auto kSecondOfThree = everyThird(1);
inline constexpr auto kThirdOfThree = everyThird(2);

// The conversion for one vector type; `V` names its instructions. It is exact in 16-bit lanes,
// which the plain formula overflows:
//
//   The formula's terms are halved. All factors but 409 are even, and 298 C + 128 is even as well,
//   so that (298 C + 409 E + 128) >> 8 == (149 C + ((409 E) >> 1) + 64) >> 7, and no bit is lost.
//   149 C + 64 = 149 (Y - 128) + 16752, and 149 (Y - 128) is one multiply-add of unsigned 149 with
//   Y ^ 0x80 as a signed byte; with (149, 0) it picks the even pixels, with (0, 149) the odd ones.
//   16752 = 128 * 128 + 368. 368 joins the chroma term. 128 * 128 is what 128 after the shift
//   makes, and is left out there: the saturating pack to signed bytes then clamps at -128 and 127,
//   and flipping the top bit adds the 128 back.
//   The one addition that can overflow saturates, far beyond what the pack clamps anyway.
//   516 D alone needs 17 bits: 258 D = 256 D + 2 D, where 256 D becomes 2 D after the shift.
template <typename V>
struct ColorKernel16
{
    using Vec = typename V::Vec;

    struct ChromaTerms
    {
        Vec blue;
        Vec blueAfterShift;
        Vec green;
        Vec red;
    };

    // `u` and `v`: one sample in each 16-bit lane, 0..255.
    static ChromaTerms chromaTerms(Vec u, Vec v)
    {
        const Vec d = V::sub16(u, V::set16(128));
        const Vec e = V::sub16(v, V::set16(128));
        const Vec bias = V::set16(368);
        const Vec twiceD = V::add16(d, d);
        const Vec green = V::add16(V::mul16(d, V::set16(50)), V::mul16(e, V::set16(104)));
        const Vec red = V::add16(V::mul16(e, V::set16(204)), V::template shiftRight16<1>(e));
        return {V::add16(twiceD, bias), twiceD, V::sub16(bias, green), V::add16(red, bias)};
    }

    // One channel of a block: `even` and `odd` are 149 (Y - 128) of every other pixel.
    static Vec channel(Vec even, Vec odd, Vec chroma)
    {
        return V::pack16(V::template shiftRight16<7>(V::addSaturated16(even, chroma)),
                         V::template shiftRight16<7>(V::addSaturated16(odd, chroma)));
    }

    static Vec blueChannel(Vec even, Vec odd, const ChromaTerms& chroma)
    {
        const Vec e = V::template shiftRight16<7>(V::add16(even, chroma.blue));
        const Vec o = V::template shiftRight16<7>(V::add16(odd, chroma.blue));
        return V::pack16(V::add16(e, chroma.blueAfterShift), V::add16(o, chroma.blueAfterShift));
    }

    static void convertBlock(const std::uint8_t* y, const ChromaTerms& chroma, std::uint8_t* bgr)
    {
        const Vec luma = V::flipTopBits(V::load(y));
        const Vec even = V::multiplyAdd8(V::set16(149), luma);
        const Vec odd = V::multiplyAdd8(V::set16(149 << 8), luma);
        interleave(V::flipTopBits(blueChannel(even, odd, chroma)),
                   V::flipTopBits(channel(even, odd, chroma.green)),
                   V::flipTopBits(channel(even, odd, chroma.red)), bgr);
    }

    static void interleave(Vec blue, Vec green, Vec red, std::uint8_t* bgr)
    {
        const Vec b = V::shuffle8(blue, V::constant(kBlueShuffle));
        const Vec g = V::shuffle8(green, V::constant(kGreenShuffle));
        const Vec r = V::shuffle8(red, V::constant(kRedShuffle));
        const Vec second = V::constant(kSecondOfThree);
        const Vec third = V::constant(kThirdOfThree);
        V::store3(bgr, V::blend8(V::blend8(b, g, second), r, third),
                  V::blend8(V::blend8(g, r, second), b, third),
                  V::blend8(V::blend8(r, b, second), g, third));
    }

    static void interleaved(const ColorRowPair& rows, std::ptrdiff_t width)
    {
        for (std::ptrdiff_t x = 0; x + V::kPixels <= width; x += V::kPixels) {
            const Vec uv = V::load(rows.chroma[0] + x);
            const auto chroma = chromaTerms(V::evenBytes(uv), V::oddBytes(uv));
            convertBlock(rows.y[0] + x, chroma, rows.bgr[0] + 3 * x);
            convertBlock(rows.y[1] + x, chroma, rows.bgr[1] + 3 * x);
        }
    }

    static void planar(const ColorRowPair& rows, std::ptrdiff_t width)
    {
        for (std::ptrdiff_t x = 0; x + V::kPixels <= width; x += V::kPixels) {
            const auto chroma = chromaTerms(V::loadWidened(rows.chroma[0] + x / 2),
                                            V::loadWidened(rows.chroma[1] + x / 2));
            convertBlock(rows.y[0] + x, chroma, rows.bgr[0] + 3 * x);
            convertBlock(rows.y[1] + x, chroma, rows.bgr[1] + 3 * x);
        }
    }
};

} // namespace pevrix
