#include "softcam/Camera.h"
#include "softcam/softcam.h"

#include <exception>

namespace {

pevrix::Camera* cameraOf(scCamera handle)
{
    return static_cast<pevrix::Camera*>(handle);
}

// The callers are not all C++: no exception gets out.
template <typename Result, typename Call>
Result orElse(Result otherwise, const Call& call)
{
    try {
        return call();
    } catch (const std::exception&) {
        return otherwise;
    }
}

} // namespace

scCamera scCreateCamera(int width, int height, float framerate)
{
    const auto format = pevrix::cameraFormat(width, height, framerate);
    return !format
               ? nullptr
               : orElse<scCamera>(nullptr, [&] { return pevrix::Camera::make(*format).release(); });
}

void scDeleteCamera(scCamera camera)
{
    delete cameraOf(camera);
}

void scSendFrame(scCamera camera, const void* bgrPixels)
{
    if (camera != nullptr && bgrPixels != nullptr) {
        orElse(false, [&] {
            cameraOf(camera)->sendFrame(static_cast<const std::uint8_t*>(bgrPixels));
            return true;
        });
    }
}

int scIsConnected(scCamera camera)
{
    return orElse(0, [&] { return camera != nullptr && cameraOf(camera)->isConnected() ? 1 : 0; });
}
