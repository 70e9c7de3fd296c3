#pragma once

#include <cstdint>

namespace pevrix {

// A camera that other programs on this computer see, fed with the program's pictures. Nothing is
// logged and nothing thrown; start() says whether there is a camera.
class IVirtualCameraSink
{
public:
    IVirtualCameraSink() = default;
    IVirtualCameraSink(const IVirtualCameraSink&) = delete;
    IVirtualCameraSink& operator=(const IVirtualCameraSink&) = delete;
    virtual ~IVirtualCameraSink() = default;

    // Creates a camera of this size in pixels and this rate in pictures per second. True when a
    // camera exists afterwards; one that exists already stays as it is, whatever its size.
    [[nodiscard]] virtual bool start(int width, int height, float fps) = 0;

    // Offers one picture of the started size: packed 3-byte pixels in the order blue, green, red,
    // top row first, rows of exactly width * 3 bytes. The bytes are copied before it returns. Any
    // thread; dropped while there is no camera.
    virtual void sendFrame(const std::uint8_t* pixels) = 0;

    // Takes the camera away. Safe when there is none.
    virtual void stop() = 0;

    // Whether a camera exists. Any thread.
    [[nodiscard]] virtual bool isActive() const = 0;

    // Whether some program has the camera open. Any thread.
    [[nodiscard]] virtual bool isAppConnected() const = 0;
};

} // namespace pevrix
