#pragma once

#include "video/MediaFoundation_win.h"
#include "video/Mp4Recorder.h"

// After windows.h, whose types it uses.
#include <chrono>
#include <functional>

namespace pevrix {

// The functions of Media Foundation and of the system that a recording calls; all else goes through
// the objects that they make.
struct Mp4Recorder::Platform
{
    using Clock = std::chrono::steady_clock;

    std::function<decltype(MFStartup)> startup = MFStartup;
    std::function<decltype(MFShutdown)> shutdown = MFShutdown;
    std::function<decltype(MFCreateAttributes)> createAttributes = MFCreateAttributes;
    std::function<decltype(MFCreateSinkWriterFromURL)> createSinkWriter = MFCreateSinkWriterFromURL;
    std::function<decltype(MFCreateMediaType)> createMediaType = MFCreateMediaType;
    std::function<decltype(MFCreateMemoryBuffer)> createMemoryBuffer = MFCreateMemoryBuffer;
    std::function<decltype(MFCreateSample)> createSample = MFCreateSample;
    std::function<decltype(DeleteFileW)> deleteFile = DeleteFileW;
    std::function<Clock::time_point()> now = Clock::now;
};

} // namespace pevrix
