#pragma once

namespace pevrix {

// Where the system's decoder below the back end may differ from what it should be.
struct DecoderTraits
{
    // Each picture carries the time of its access unit. Otherwise pictures are counted from the
    // time of the first one, at 30 a second.
    bool keepsTimes = true;
    // Pictures other than 8-bit 4:2:0 are dropped. Otherwise they are converted.
    bool dropsOtherFormats = true;
    // Pictures are cropped as the stream says. Otherwise they come in whole macroblocks.
    bool crops = true;
};

[[nodiscard]] DecoderTraits decoderTraits();

} // namespace pevrix
