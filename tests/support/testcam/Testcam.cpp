#include "tests/support/testcam/Testcam.h"

#include <memory>
#include <vector>

#ifdef _WIN32
#define TESTCAM_EXPORT extern "C" __declspec(dllexport)
#else
#define TESTCAM_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

struct Camera
{
    std::atomic<bool> exists = true;
    std::atomic<bool> sending = false;
};

TestcamState state{.origin = TESTCAM_ORIGIN};

// Deleted cameras stay here, so that a call with one of them is seen rather than a crash. Only the
// thread that creates and deletes cameras touches the list.
std::vector<std::unique_ptr<Camera>> cameras;

} // namespace

TESTCAM_EXPORT TestcamState* testcamState()
{
    return &state;
}

TESTCAM_EXPORT void* scCreateCamera(int width, int height, float fps)
{
    state.width = width;
    state.height = height;
    state.fps = fps;
    if (state.createFails) {
        return nullptr;
    }
    ++state.created;
    return cameras.emplace_back(std::make_unique<Camera>()).get();
}

TESTCAM_EXPORT void scDeleteCamera(void* handle)
{
    auto* camera = static_cast<Camera*>(handle);
    const bool existed = camera->exists.exchange(false);
    if (!existed || camera->sending) {
        ++state.misuses;
    }
    ++state.deleted;
}

#ifndef TESTCAM_WITHOUT_SEND
TESTCAM_EXPORT void scSendFrame(void* handle, const void* pixels)
{
    auto* camera = static_cast<Camera*>(handle);
    camera->sending = true;
    if (!camera->exists) {
        ++state.misuses;
    }
    ++state.sent;
    if (state.onSend) {
        state.onSend(static_cast<const std::uint8_t*>(pixels));
    }
    camera->sending = false;
}
#endif

#ifndef TESTCAM_WITHOUT_CONNECTED
TESTCAM_EXPORT bool scIsConnected(void* handle)
{
    if (!static_cast<Camera*>(handle)->exists) {
        ++state.misuses;
    }
    return state.appConnected;
}
#endif
