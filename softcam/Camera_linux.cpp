#include "softcam/Camera.h"
#include "softcam/CameraOutlet_linux.h"

#include <mutex>
#include <utility>

namespace pevrix {

namespace {

// Keeps the outlet of the camera that was deleted last, with the programs that read there, for the
// next camera of this process. What it still holds ends with the process: the library is never
// unloaded.
class OutletStore
{
public:
    static OutletStore& instance()
    {
        static OutletStore store;
        return store;
    }

    [[nodiscard]] std::unique_ptr<CameraOutlet> take()
    {
        const std::lock_guard lock(m_mutex);
        return m_outlet ? std::move(m_outlet) : std::make_unique<CameraOutlet>();
    }

    void putBack(std::unique_ptr<CameraOutlet> outlet)
    {
        const std::lock_guard lock(m_mutex);
        std::swap(m_outlet, outlet); // a former one ends outside the lock
    }

private:
    std::mutex m_mutex;
    std::unique_ptr<CameraOutlet> m_outlet;
};

class LinuxCamera final : public Camera
{
public:
    explicit LinuxCamera(const CameraFormat& format)
        : m_format(format)
        , m_outlet(OutletStore::instance().take())
    {
        m_outlet->open(format);
    }
    ~LinuxCamera() override
    {
        m_outlet->close();
        OutletStore::instance().putBack(std::move(m_outlet));
    }

    void sendFrame(const std::uint8_t* bgr) override
    {
        m_outlet->sendFrame({bgr, m_format.width, m_format.height});
    }
    [[nodiscard]] bool isConnected() override { return m_outlet->isConnected(); }

private:
    const CameraFormat m_format;
    std::unique_ptr<CameraOutlet> m_outlet;
};

} // namespace

std::unique_ptr<Camera> Camera::make(const CameraFormat& format)
{
    return std::make_unique<LinuxCamera>(format);
}

} // namespace pevrix
