#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pevrix {

// One access unit of an Annex-B stream; the bytes belong to the stream.
struct AccessUnit
{
    std::span<const std::uint8_t> bytes;
    bool keyframe = false;
};

// Splits a whole stream. An access unit starts at the first parameter set, SEI or delimiter after
// a slice, or at a slice that starts a picture (its first field, first_mb_in_slice, is the one-bit
// code for 0).
inline std::vector<AccessUnit> splitAccessUnits(std::span<const std::uint8_t> stream)
{
    std::vector<AccessUnit> units;
    std::size_t start = 0;
    bool sliceSeen = false;
    bool keyframe = false;
    for (std::size_t i = 0; i + 4 < stream.size(); ++i) {
        if (stream[i] != 0 || stream[i + 1] != 0 || stream[i + 2] != 1) {
            continue;
        }
        const int type = stream[i + 3] & 31;
        const bool slice = type == 1 || type == 5;
        const bool startsPicture = slice && (stream[i + 4] & 0x80) != 0;
        if (sliceSeen && (startsPicture || (type >= 6 && type <= 9))) {
            const std::size_t end = stream[i - 1] == 0 ? i - 1 : i;
            units.push_back({stream.subspan(start, end - start), keyframe});
            start = end;
            sliceSeen = false;
            keyframe = false;
        }
        sliceSeen = sliceSeen || slice;
        keyframe = keyframe || type == 5;
    }
    if (sliceSeen) {
        units.push_back({stream.subspan(start), keyframe});
    }
    return units;
}

} // namespace pevrix
