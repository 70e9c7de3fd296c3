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

    std::function<decltype(MFStartup)> startup = [](auto... arguments) {
        return mediaFunctions().startup(arguments...);
    };
    std::function<decltype(MFShutdown)> shutdown = [](auto... arguments) {
        return mediaFunctions().shutdown(arguments...);
    };
    std::function<decltype(MFCreateAttributes)> createAttributes = [](auto... arguments) {
        return mediaFunctions().createAttributes(arguments...);
    };
    std::function<decltype(MFCreateSinkWriterFromURL)> createSinkWriter = [](auto... arguments) {
        return mediaFunctions().createSinkWriter(arguments...);
    };
    std::function<decltype(MFCreateMediaType)> createMediaType = [](auto... arguments) {
        return mediaFunctions().createMediaType(arguments...);
    };
    std::function<decltype(MFCreateMemoryBuffer)> createMemoryBuffer = [](auto... arguments) {
        return mediaFunctions().createMemoryBuffer(arguments...);
    };
    std::function<decltype(MFCreateSample)> createSample = [](auto... arguments) {
        return mediaFunctions().createSample(arguments...);
    };
    std::function<decltype(DeleteFileW)> deleteFile = DeleteFileW;
    std::function<Clock::time_point()> now = Clock::now;
};

} // namespace pevrix
