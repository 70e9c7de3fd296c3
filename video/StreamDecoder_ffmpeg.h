#pragma once

#include "video/FFmpegModule_linux.h"

namespace pevrix {

// A decoder of H.264; null when there is none.
[[nodiscard]] std::unique_ptr<IStreamDecoder> openStreamDecoder();

} // namespace pevrix
