#pragma once

#include "video/Mp4Recorder.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace pevrix {

struct Mp4Recorder::Platform
{
    using Clock = std::chrono::steady_clock;

    std::function<Clock::time_point()> now = Clock::now;

    // H.264 encoders of libavcodec that take planar 4:2:0 from memory; the first that can be opened
    // is used. Which of them exist depends on how the library was built.
    std::vector<std::string> encoders = {"libx264", "libopenh264", "h264_nvenc", "h264_v4l2m2m"};
};

} // namespace pevrix
