#include "softcam/Camera.h"
#include "softcam/softcam.h"

#include <exception>

namespace {

pevrix::Camera* cameraOf(scCamera handle)
{
    return static_cast<pevrix::Camera*>(handle);
}

} // namespace

scCamera scCreateCamera(int width, int height, float framerate)
{
    const auto format = pevrix::cameraFormat(width, height, framerate);
    if (!format) {
        return nullptr;
    }
    try {
        return new pevrix::Camera(*format);
    } catch (const std::exception&) { // the callers are not all C++
        return nullptr;
    }
}

void scDeleteCamera(scCamera camera)
{
    delete cameraOf(camera);
}

void scSendFrame(scCamera camera, const void* bgrPixels)
{
    if (camera != nullptr && bgrPixels != nullptr) {
        cameraOf(camera)->sendFrame(static_cast<const std::uint8_t*>(bgrPixels));
    }
}

int scIsConnected(scCamera camera)
{
    return camera != nullptr && cameraOf(camera)->isConnected() ? 1 : 0;
}
