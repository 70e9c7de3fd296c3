#pragma once

#include "video/MediaFoundation_win.h"
#include "video/Mp4Recorder.h"

// After windows.h, whose types it uses.
#include <chrono>
#include <functional>

namespace pevrix {

// All else goes through the writer that is made.
struct Mp4Recorder::Platform
{
    using Clock = std::chrono::steady_clock;

    std::function<decltype(MFCreateSinkWriterFromURL)> createSinkWriter = [](auto... arguments) {
        return mediaFunctions().createSinkWriter(arguments...);
    };
    std::function<Clock::time_point()> now = Clock::now;
};

} // namespace pevrix
