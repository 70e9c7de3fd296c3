#include "tools/doubles/Testcam.h"

#include "tools/doubles/CameraLog.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#define TESTCAM_EXPORT extern "C" TESTCAM_ATTRIBUTE

namespace {

using pevrix::CameraEvent;

// Every record is in the file when the call returns, however the program ends.
class Log
{
public:
    Log()
    {
        if (const char* name = std::getenv(pevrix::kCameraLogVariable)) {
            m_file.reset(std::fopen(name, "ab"));
        }
    }

    void write(CameraEvent event, int width, int height, const void* pixels = nullptr)
    {
        if (!m_file) {
            return;
        }
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        pevrix::CameraRecord record{.event = event,
                                    .time = std::chrono::nanoseconds(now).count(),
                                    .width = width,
                                    .height = height};
        if (pixels) {
            record.hash = pevrix::pictureHash(static_cast<const std::uint8_t*>(pixels),
                                              std::size_t{3} * static_cast<std::size_t>(width) *
                                                  static_cast<std::size_t>(height));
        }
        std::fwrite(&record, sizeof record, 1, m_file.get());
        std::fflush(m_file.get());
    }

private:
    struct Close
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> m_file;
};

struct Camera
{
    int width = 0;
    int height = 0;
    Log log;
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
    auto camera = std::make_unique<Camera>();
    camera->width = width;
    camera->height = height;
    camera->log.write(CameraEvent::Created, width, height);
    return cameras.emplace_back(std::move(camera)).get();
}

TESTCAM_EXPORT void scDeleteCamera(void* handle)
{
    auto* camera = static_cast<Camera*>(handle);
    const bool existed = camera->exists.exchange(false);
    if (!existed || camera->sending) {
        ++state.misuses;
    }
    ++state.deleted;
    camera->log.write(CameraEvent::Deleted, camera->width, camera->height);
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
    camera->log.write(CameraEvent::Sent, camera->width, camera->height, pixels);
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
