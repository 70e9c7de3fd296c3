#include "video/ColorKernelTemplate.h"

#include <immintrin.h>

namespace pevrix {

namespace {

// 32 pixels at a time. All but store3() works within 128-bit halves: the lower half holds pixels 0
// to 15, the upper one 16 to 31.
struct Avx2
{
    using Vec = __m256i;
    static constexpr std::ptrdiff_t kPixels = 32;

    static Vec load(const std::uint8_t* p)
    {
        return _mm256_loadu_si256(reinterpret_cast<const Vec*>(p));
    }
    static Vec loadWidened(const std::uint8_t* p)
    {
        return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
    }
    static Vec constant(const Bytes16& half)
    {
        return _mm256_broadcastsi128_si256(
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(half.at)));
    }
    static Vec set16(int value) { return _mm256_set1_epi16(static_cast<short>(value)); }
    static Vec evenBytes(Vec v) { return _mm256_and_si256(v, set16(0xff)); }
    static Vec oddBytes(Vec v) { return _mm256_srli_epi16(v, 8); }
    static Vec flipTopBits(Vec v) { return _mm256_xor_si256(v, _mm256_set1_epi8(-128)); }
    static Vec add16(Vec a, Vec b) { return _mm256_add_epi16(a, b); }
    static Vec addSaturated16(Vec a, Vec b) { return _mm256_adds_epi16(a, b); }
    static Vec sub16(Vec a, Vec b) { return _mm256_sub_epi16(a, b); }
    static Vec mul16(Vec a, Vec b) { return _mm256_mullo_epi16(a, b); }
    static Vec multiplyAdd8(Vec a, Vec b) { return _mm256_maddubs_epi16(a, b); }
    static Vec pack16(Vec a, Vec b) { return _mm256_packs_epi16(a, b); }
    static Vec shuffle8(Vec v, Vec places) { return _mm256_shuffle_epi8(v, places); }
    static Vec blend8(Vec a, Vec b, Vec mask) { return _mm256_blendv_epi8(a, b, mask); }
    template <int Bits>
    static Vec shiftRight16(Vec v)
    {
        return _mm256_srai_epi16(v, Bits);
    }

    static void store3(std::uint8_t* p, Vec first, Vec second, Vec third)
    {
        auto* out = reinterpret_cast<Vec*>(p);
        _mm256_storeu_si256(out, _mm256_permute2x128_si256(first, second, 0x20));
        _mm256_storeu_si256(out + 1, _mm256_permute2x128_si256(third, first, 0x30));
        _mm256_storeu_si256(out + 2, _mm256_permute2x128_si256(second, third, 0x31));
    }
};

} // namespace

const ColorRowKernels kAvx2RowKernels = {Avx2::kPixels, ColorKernel16<Avx2>::interleaved,
                                         ColorKernel16<Avx2>::planar};

} // namespace pevrix
