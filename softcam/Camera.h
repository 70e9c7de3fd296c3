#pragma once

#include "softcam/PictureFormat.h"
#include "softcam/PipeWireSource.h"
#include "softcam/V4l2Output.h"

#include <cstdint>
#include <optional>

namespace pevrix {

// One camera as other programs see it: a PipeWire source, and the v4l2loopback device beside it
// where there is one. Owned by the handle that scCreateCamera() returns; the contracts of its
// functions are those of softcam.h.
class Camera
{
public:
    explicit Camera(const CameraFormat& format)
        : m_source(format)
        , m_loopback(V4l2Output::openFirstFree(format))
    {}

    void sendFrame(const std::uint8_t* bgr)
    {
        m_source.sendFrame(bgr);
        if (m_loopback) {
            m_loopback->sendFrame(bgr);
        }
    }

    [[nodiscard]] bool isConnected() const { return m_source.isConnected(); }

private:
    PipeWireSource m_source;
    std::optional<V4l2Output> m_loopback;
};

} // namespace pevrix
