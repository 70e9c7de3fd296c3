#include "video/VideoBackEnd.h"

namespace pevrix {

// Media Foundation is linked, and starts with the decoder.
std::string loadVideoBackEnd()
{
    return {};
}

} // namespace pevrix
