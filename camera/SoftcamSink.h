#pragma once

#include "camera/CameraLibrary.h"
#include "camera/IVirtualCameraSink.h"
#include "camera/PacedThread.h"

#include <mutex>
#include <vector>

namespace pevrix {

// The virtual camera behind the camera library, which is loaded by the first start() and kept until
// destruction. Pictures may come at any time and go out at the camera's rate: sendFrame() leaves
// the newest picture in a mailbox, and the sink's own thread sends what is in the mailbox once per
// period, the same picture again until there is a newer one. Nothing is sent before the first
// picture. Each picture is copied once, without allocation.
//
// start() and stop() belong to one thread at a time; everything else may be called by any.
class SoftcamSink final : public IVirtualCameraSink
{
public:
    explicit SoftcamSink(std::filesystem::path libraryName = cameraLibraryName(),
                         PacingTime time = {});
    ~SoftcamSink() override;

    // Also false when the library is not there or lacks a required entry point, and for a size that
    // isPictureSize() refuses. The camera is created with the rate as given, even one that makes no
    // sense; the sender then works at 30 pictures per second if it is not greater than 1.
    [[nodiscard]] bool start(int width, int height, float fps) override;
    void sendFrame(const std::uint8_t* pixels) override;

    // Waits for the sender, up to one period, and if there was a camera for another 100 ms.
    void stop() override;
    [[nodiscard]] bool isActive() const override;

    // Always false when the library cannot tell.
    [[nodiscard]] bool isAppConnected() const override;

private:
    using Camera = void*;
    using Pixels = std::vector<std::uint8_t>;

    bool loadLibrary();
    void clearEntryPoints();
    bool startSender(int width, int height);
    bool takePending(Pixels& picture);
    void deleteCamera();

    const std::filesystem::path m_libraryName;
    const PacingTime m_time;

    CameraLibrary m_module;
    Camera (*m_createCamera)(int width, int height, float fps) = nullptr;
    void (*m_deleteCamera)(Camera) = nullptr;
    void (*m_sendFrameFn)(Camera, const void* pixels) = nullptr;
    // Optional. Only the low byte of the result counts: to a library that declares a C++ bool the
    // bytes above it are free.
    unsigned char (*m_isConnectedFn)(Camera) = nullptr;

    // Keeps isAppConnected() from asking a camera that stop() is deleting.
    mutable std::mutex m_cameraMutex;
    Camera m_camera = nullptr;

    int m_width = 0;
    int m_height = 0;
    float m_fps = 0;

    // Guards the size and the mailbox, and is held only for a copy.
    std::mutex m_mutex;
    Pixels m_pending;        // width * height * 3 bytes while a camera exists, else empty
    bool m_hasFrame = false; // sendFrame() has brought one
    bool m_fresh = false;    // which the sender has not taken yet: m_pending is it

    PacedThread m_sender; // last: it uses all of the above
};

} // namespace pevrix
