#pragma once

#include "video/FFmpegModule_linux.h"

namespace pevrix {

// Begins an MP4 file; null, and no file, when that is not possible.
[[nodiscard]] std::unique_ptr<IRecording> openRecording(const IRecording::Description& description);

} // namespace pevrix
