#pragma once

#include "softcam/PictureFormat.h"

#include <cstdint>
#include <vector>

namespace pevrix {

// What a reader sees while no program sends: a crossed-out camera on a dark background, in this
// size. Packed like a picture that is sent (blue, green, red). Drawn point by point, because the
// readers' programs may have neither fonts nor a desktop. Throws std::bad_alloc.
[[nodiscard]] std::vector<std::uint8_t> absentCard(const CameraFormat& size);

} // namespace pevrix
