#include "tests/video/DecoderTraits.h"
#include "tools/doubles/ThisProcess.h"

namespace pevrix {

// The system's decoder declares whole macroblocks as the size of its pictures. The rest is the
// doing of Wine's stand-in for it, seen in version 10, which also garbles what follows a cropped
// picture.
DecoderTraits decoderTraits()
{
    const bool wine = runsUnderWine();
    return {.keepsTimes = !wine, .dropsOtherFormats = !wine, .crops = false};
}

} // namespace pevrix
