#pragma once

#include "softcam/PictureFormat.h"

#include <cstdint>
#include <memory>

namespace pevrix {

// One camera of one owner: what a handle of softcam.h stands for; the contracts are those given
// there. Its readers outlive it (see the platform's make()).
class Camera
{
public:
    // Null when another program of this user has the camera; throws std::bad_alloc or
    // std::runtime_error when memory or another resource is short.
    [[nodiscard]] static std::unique_ptr<Camera> make(const CameraFormat& format);

    virtual ~Camera() = default;
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;

    // `bgr` has the format's bgrSize() bytes. One thread at a time. Throws std::bad_alloc.
    virtual void sendFrame(const std::uint8_t* bgr) = 0;

    // Whether a program is reading now. Any thread.
    [[nodiscard]] virtual bool isConnected() = 0;

protected:
    Camera() = default;
};

} // namespace pevrix
