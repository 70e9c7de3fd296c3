#include "tests/video/DecoderTraits.h"

namespace pevrix {

DecoderTraits decoderTraits()
{
    return {};
}

} // namespace pevrix
