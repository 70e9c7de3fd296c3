// Arbitrary bytes into the property-list reader.
#include "usb/Plist.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

int depthOf(const QVariantMap& map)
{
    int deepest = 0;
    for (const QVariant& value : map) {
        if (value.typeId() == QMetaType::QVariantMap) {
            deepest = std::max(deepest, depthOf(value.toMap()));
        }
    }
    return deepest + 1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const QVariantMap map = pevrix::parsePlist(bytes);
    // What the writer makes of it has the same keys: nothing read breaks out of its element.
    // (Line ends are the exception: XML itself changes a carriage return.)
    const QVariantMap again = pevrix::parsePlist(pevrix::buildPlist(map));
    const bool sameKeys = again.keys() == map.keys();
    const bool hasLineEnds =
        std::ranges::any_of(map.keys(), [](const QString& key) { return key.contains(u'\r'); });
    if (depthOf(map) > pevrix::kPlistMaxDepth || (!sameKeys && !hasLineEnds)) {
        std::abort();
    }
    return 0;
}
