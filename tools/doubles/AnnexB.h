#pragma once

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
[[nodiscard]] std::vector<AccessUnit> splitAccessUnits(std::span<const std::uint8_t> stream);

// The parameter sets at the front of an access unit, with their start codes; empty when it has
// none.
[[nodiscard]] std::span<const std::uint8_t> parameterSets(std::span<const std::uint8_t> accessUnit);

} // namespace pevrix
