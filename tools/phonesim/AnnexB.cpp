#include "tools/phonesim/AnnexB.h"

#include <algorithm>
#include <array>

namespace pevrix {

namespace {

constexpr std::array<std::uint8_t, 3> kStartCode{0, 0, 1};

} // namespace

std::vector<NalUnit> splitNalUnits(std::span<const std::uint8_t> bytes)
{
    std::vector<NalUnit> units;
    auto start = std::search(bytes.begin(), bytes.end(), kStartCode.begin(), kStartCode.end());
    while (start != bytes.end()) {
        const auto header = start + kStartCode.size();
        auto next = std::search(header, bytes.end(), kStartCode.begin(), kStartCode.end());
        // A fourth byte of zero before a start code belongs to it, not to the unit before.
        const auto withZero = [&](auto at, auto lowest) {
            return at != bytes.end() && at > lowest && *(at - 1) == 0 ? at - 1 : at;
        };
        const auto begin = withZero(start, bytes.begin());
        const auto end = withZero(next, header);
        const auto type = header == bytes.end() ? std::uint8_t{0} : *header;
        units.push_back({static_cast<NalType>(type & 0x1F), {begin, end}});
        start = next;
    }
    return units;
}

bool isKeyframe(std::span<const std::uint8_t> accessUnit)
{
    return std::ranges::any_of(splitNalUnits(accessUnit),
                               [](const NalUnit& unit) { return unit.type == NalType::IdrSlice; });
}

std::vector<std::uint8_t> parameterSets(std::span<const std::uint8_t> accessUnit)
{
    std::vector<std::uint8_t> sets;
    for (const NalUnit& unit : splitNalUnits(accessUnit)) {
        if (unit.type == NalType::SequenceParameters || unit.type == NalType::PictureParameters) {
            sets.insert(sets.end(), unit.bytes.begin(), unit.bytes.end());
        }
    }
    return sets;
}

} // namespace pevrix
