// Arbitrary bytes as a stream, access unit by access unit as they come from a phone: no crash, and
// every picture lies in memory in full.
#include "tools/doubles/AnnexB.h"
#include "video/H264Decoder.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    unsigned sum = 0;
    pevrix::H264Decoder decoder([&](const std::uint8_t* bgr, int width, int height,
                                    std::int64_t /*ptsUsec*/) {
        const auto bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
        for (std::size_t i = 0; i < bytes; i += 61) {
            sum += bgr[i];
        }
        sum += bgr[bytes - 1];
    });
    if (!decoder.initialize(320, 240)) {
        std::abort();
    }
    const std::span stream(data, size);
    std::int64_t time = 0;
    for (const pevrix::AccessUnit& unit : pevrix::splitAccessUnits(stream)) {
        decoder.feed(unit.bytes, time += 33333);
    }
    // Once more as one piece: what has no slice to split at is fed as well.
    decoder.feed(stream, time);
    volatile unsigned keep = sum;
    static_cast<void>(keep);
    return 0;
}
