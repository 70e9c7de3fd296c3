#pragma once

#include "phone/Protocol.h"

#include <QByteArray>

#include <cstdint>

namespace pevrix {

/// A small JPEG of the generated picture (of frame `number`, with the stream's aspect and at most
/// 320 pixels wide), such as a phone shows of itself before it streams. Empty when encoding fails.
[[nodiscard]] QByteArray makeThumbnail(const StreamDescription& stream, std::int64_t number);

} // namespace pevrix
