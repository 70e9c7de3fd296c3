#include "tools/doubles/AnnexB.h"

#include <cstddef>

namespace pevrix {

namespace {

constexpr int kIdrSlice = 5;
constexpr int kSequenceParameters = 7;
constexpr int kPictureParameters = 8;

bool isSlice(int type)
{
    return type == 1 || type == kIdrSlice;
}

// Calls onUnit(start, type, first byte after the header) for each NAL unit with at least that much.
// A fourth byte of zero before a start code belongs to it.
template <typename OnUnit>
void forEachUnit(std::span<const std::uint8_t> stream, const OnUnit& onUnit)
{
    for (std::size_t i = 0; i + 4 < stream.size(); ++i) {
        if (stream[i] == 0 && stream[i + 1] == 0 && stream[i + 2] == 1) {
            const bool longCode = i > 0 && stream[i - 1] == 0;
            onUnit(longCode ? i - 1 : i, stream[i + 3] & 31, stream[i + 4]);
        }
    }
}

} // namespace

std::vector<AccessUnit> splitAccessUnits(std::span<const std::uint8_t> stream)
{
    std::vector<AccessUnit> units;
    std::size_t start = 0;
    bool sliceSeen = false;
    bool keyframe = false;
    forEachUnit(stream, [&](std::size_t at, int type, std::uint8_t next) {
        const bool startsPicture = isSlice(type) && (next & 0x80) != 0;
        if (sliceSeen && (startsPicture || (type >= 6 && type <= 9))) {
            units.push_back({stream.subspan(start, at - start), keyframe});
            start = at;
            sliceSeen = false;
            keyframe = false;
        }
        sliceSeen = sliceSeen || isSlice(type);
        keyframe = keyframe || type == kIdrSlice;
    });
    if (sliceSeen) {
        units.push_back({stream.subspan(start), keyframe});
    }
    return units;
}

std::span<const std::uint8_t> parameterSets(std::span<const std::uint8_t> accessUnit)
{
    std::size_t first = 0;
    std::size_t end = 0;
    bool inside = false;
    bool over = false;
    forEachUnit(accessUnit, [&](std::size_t at, int type, std::uint8_t) {
        const bool isSet = type == kSequenceParameters || type == kPictureParameters;
        if (over || isSet == inside) {
            return;
        }
        (inside ? end : first) = at;
        over = inside;
        inside = isSet;
    });
    return accessUnit.subspan(first, inside ? accessUnit.size() - first : end - first);
}

} // namespace pevrix
