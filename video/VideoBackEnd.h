#pragma once

#include <string>

namespace pevrix {

// Loads what decodes and records, unless it is there already: tens of milliseconds the first time.
// Says why it cannot be loaded, and nothing when it is. H264Decoder and Mp4Recorder load it by
// themselves; whoever does it before spares the first picture the wait. Safe from any thread.
[[nodiscard]] std::string loadVideoBackEnd();

} // namespace pevrix
