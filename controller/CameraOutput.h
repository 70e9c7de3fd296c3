#pragma once

#include "camera/IVirtualCameraSink.h"
#include "controller/IPictureConsumer.h"

#include <QSize>

#include <atomic>
#include <cstdint>

namespace pevrix {

// The camera's one gate: its size, whether pictures go out, and how many did. show() and the
// questions may come from any thread; all else belongs to the GUI thread.
class CameraOutput final : public IPictureConsumer
{
public:
    // The camera's rate in pictures a second, whatever the phone sends.
    static constexpr float kFps = 30;

    // `sink` must outlive this object.
    explicit CameraOutput(IVirtualCameraSink& sink)
        : m_sink(sink)
    {}

    // Creates the camera in the present size. False when the system has no camera to give.
    [[nodiscard]] bool create();

    // Replaces the camera by one of another size. False when the system has no camera to give; the
    // new size is kept nevertheless, and pictures are still counted. No thread may be in show().
    [[nodiscard]] bool resize(QSize size);

    void remove() { m_sink.stop(); }
    [[nodiscard]] bool exists() const { return m_sink.isActive(); }
    [[nodiscard]] QSize size() const { return m_size; }

    // A picture of another size than the camera's is dropped.
    void show(const SharedPicture& picture) override;

    [[nodiscard]] bool isEnabled() const { return m_enabled; }
    void toggle() { m_enabled = !m_enabled; }
    [[nodiscard]] std::int64_t framesSent() const { return m_framesSent; }

private:
    IVirtualCameraSink& m_sink;
    QSize m_size{1280, 720};
    std::atomic<bool> m_enabled = true;
    std::atomic<std::int64_t> m_framesSent = 0;
};

} // namespace pevrix
