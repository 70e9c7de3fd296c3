#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace pevrix {

/// The kinds of NAL unit that the simulated phone looks at.
enum class NalType : std::uint8_t
{
    Unspecified = 0,
    IdrSlice = 5,
    SequenceParameters = 7,
    PictureParameters = 8,
};

/// The type of the NAL unit after a start code.
struct NalUnit
{
    NalType type = NalType::Unspecified;
    std::span<const std::uint8_t> bytes; ///< with its start code (00 00 01 or 00 00 00 01)
};

/// Cuts Annex-B bytes into NAL units. Bytes before the first start code are left out. The spans
/// point into `bytes`.
[[nodiscard]] std::vector<NalUnit> splitNalUnits(std::span<const std::uint8_t> bytes);

/// True when the access unit has a slice of an IDR picture, where decoding can begin.
[[nodiscard]] bool isKeyframe(std::span<const std::uint8_t> accessUnit);

/// The parameter sets of an access unit, one after the other with their start codes; empty when it
/// has none.
[[nodiscard]] std::vector<std::uint8_t> parameterSets(std::span<const std::uint8_t> accessUnit);

} // namespace pevrix
