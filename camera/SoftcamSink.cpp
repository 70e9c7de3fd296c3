#include "camera/SoftcamSink.h"

#include "picture/PictureSize.h"

#include <cstring>
#include <exception>
#include <utility>

namespace pevrix {
namespace {

using namespace std::chrono_literals;

constexpr float kDefaultFps = 30.0F;

// Programs that read the camera must see it vanish before a new one of the same name appears.
constexpr auto kVanishTime = 100ms;

template <typename Function>
void resolve(Function*& function, const CameraLibrary& library, const char* name)
{
    function = reinterpret_cast<Function*>(cameraEntryPoint(library, name));
}

} // namespace

SoftcamSink::SoftcamSink(std::filesystem::path libraryName, PacingTime time)
    : m_libraryName(std::move(libraryName))
    , m_time(std::move(time))
    , m_sender(m_time)
{}

SoftcamSink::~SoftcamSink()
{
    stop();
}

bool SoftcamSink::start(int width, int height, float fps)
{
    if (isActive()) {
        return true;
    }
    if (!loadLibrary() || !isPictureSize(width, height)) {
        return false;
    }
    const Camera camera = m_createCamera(width, height, fps);
    if (camera == nullptr) {
        return false;
    }
    {
        const std::lock_guard lock(m_cameraMutex);
        m_camera = camera;
    }
    // A NaN takes the default as well.
    m_fps = fps > 1.0F ? fps : kDefaultFps;
    if (!startSender(width, height)) {
        stop();
        return false;
    }
    return true;
}

void SoftcamSink::sendFrame(const std::uint8_t* pixels)
{
    const std::lock_guard lock(m_mutex);
    if (!m_pending.empty() && m_pending.size() == pictureBytes(m_width, m_height)) {
        std::memcpy(m_pending.data(), pixels, m_pending.size());
        m_hasFrame = true;
        m_fresh = true;
    }
}

void SoftcamSink::stop()
{
    m_sender.stop();
    if (isActive()) {
        deleteCamera();
        m_time.sleepUntil(m_time.now() + kVanishTime);
    }
    const std::lock_guard lock(m_mutex);
    m_hasFrame = false;
    m_pending = {};
}

bool SoftcamSink::isActive() const
{
    const std::lock_guard lock(m_cameraMutex);
    return m_camera != nullptr;
}

bool SoftcamSink::isAppConnected() const
{
    const std::lock_guard lock(m_cameraMutex);
    return m_camera != nullptr && m_isConnectedFn != nullptr && m_isConnectedFn(m_camera) != 0;
}

bool SoftcamSink::loadLibrary()
{
    if (m_module) {
        return true;
    }
    m_module = loadCameraLibrary(m_libraryName);
    if (!m_module) {
        return false;
    }
    resolve(m_createCamera, m_module, "scCreateCamera");
    resolve(m_deleteCamera, m_module, "scDeleteCamera");
    resolve(m_sendFrameFn, m_module, "scSendFrame");
    resolve(m_isConnectedFn, m_module, "scIsConnected");
    if (m_createCamera == nullptr || m_deleteCamera == nullptr || m_sendFrameFn == nullptr) {
        m_module.reset();
        clearEntryPoints();
        return false;
    }
    return true;
}

void SoftcamSink::clearEntryPoints()
{
    m_createCamera = nullptr;
    m_deleteCamera = nullptr;
    m_sendFrameFn = nullptr;
    m_isConnectedFn = nullptr;
}

// Allocates both buffers for as long as the camera exists. False when the system has no memory or
// no thread left.
bool SoftcamSink::startSender(int width, int height)
try {
    Pixels picture(pictureBytes(width, height));
    {
        const std::lock_guard lock(m_mutex);
        m_width = width;
        m_height = height;
        m_pending.assign(picture.size(), 0);
        m_hasFrame = false;
        m_fresh = false;
    }
    return m_sender.start(FrameClock::periodOf(m_fps),
                          [this, camera = m_camera, picture = std::move(picture)]() mutable {
                              // Outside the lock: a library that is slow to take a picture must not
                              // hold up sendFrame().
                              if (takePending(picture)) {
                                  m_sendFrameFn(camera, picture.data());
                              }
                          });
} catch (const std::exception&) {
    return false;
}

// The newest picture, to be sent again until there is a newer one. It changes places with the one
// before, which nobody needs any more.
bool SoftcamSink::takePending(Pixels& picture)
{
    const std::lock_guard lock(m_mutex);
    if (!m_hasFrame || m_pending.size() != picture.size()) {
        return false;
    }
    if (std::exchange(m_fresh, false)) {
        picture.swap(m_pending);
    }
    return true;
}

void SoftcamSink::deleteCamera()
{
    const std::lock_guard lock(m_cameraMutex);
    m_deleteCamera(m_camera);
    m_camera = nullptr;
}

} // namespace pevrix
