#include "video/ColorKernelTemplate.h"

#include <smmintrin.h>

namespace pevrix {

namespace {

// 16 pixels at a time.
struct Sse41
{
    using Vec = __m128i;
    static constexpr std::ptrdiff_t kPixels = 16;

    static Vec load(const std::uint8_t* p)
    {
        return _mm_loadu_si128(reinterpret_cast<const Vec*>(p));
    }
    static Vec loadWidened(const std::uint8_t* p)
    {
        return _mm_cvtepu8_epi16(_mm_loadl_epi64(reinterpret_cast<const Vec*>(p)));
    }
    static Vec constant(const Bytes16& bytes) { return load(bytes.at); }
    static Vec set16(int value) { return _mm_set1_epi16(static_cast<short>(value)); }
    static Vec evenBytes(Vec v) { return _mm_and_si128(v, set16(0xff)); }
    static Vec oddBytes(Vec v) { return _mm_srli_epi16(v, 8); }
    static Vec flipTopBits(Vec v) { return _mm_xor_si128(v, _mm_set1_epi8(-128)); }
    static Vec add16(Vec a, Vec b) { return _mm_add_epi16(a, b); }
    static Vec addSaturated16(Vec a, Vec b) { return _mm_adds_epi16(a, b); }
    static Vec sub16(Vec a, Vec b) { return _mm_sub_epi16(a, b); }
    static Vec mul16(Vec a, Vec b) { return _mm_mullo_epi16(a, b); }
    static Vec multiplyAdd8(Vec a, Vec b) { return _mm_maddubs_epi16(a, b); }
    static Vec pack16(Vec a, Vec b) { return _mm_packs_epi16(a, b); }
    static Vec shuffle8(Vec v, Vec places) { return _mm_shuffle_epi8(v, places); }
    static Vec blend8(Vec a, Vec b, Vec mask) { return _mm_blendv_epi8(a, b, mask); }
    template <int Bits>
    static Vec shiftRight16(Vec v)
    {
        return _mm_srai_epi16(v, Bits);
    }

    static void store3(std::uint8_t* p, Vec first, Vec second, Vec third)
    {
        auto* out = reinterpret_cast<Vec*>(p);
        _mm_storeu_si128(out, first);
        _mm_storeu_si128(out + 1, second);
        _mm_storeu_si128(out + 2, third);
    }
};

} // namespace

const ColorRowKernels kSse41RowKernels = {Sse41::kPixels, ColorKernel16<Sse41>::interleaved,
                                          ColorKernel16<Sse41>::planar};

} // namespace pevrix
