#include "video/MediaFoundation_win.h"
#include "video/VideoBackEnd.h"

namespace pevrix {

std::string loadVideoBackEnd()
{
    return mediaFunctions().complete ? std::string()
                                     : "this Windows lacks Media Foundation; its settings have the "
                                       "Media Feature Pack among the optional features";
}

} // namespace pevrix
