#pragma once

#include "softcam/PictureFormat.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace pevrix {

// A v4l2loopback device fed with the camera's pictures, for programs that know no PipeWire. The
// kernel module copies what is written and keeps the newest, so a write waits for no reader.
// It does not tell whether there are any.
class V4l2Output
{
public:
    // The first loopback device that nobody feeds yet and that takes pictures of this format.
    [[nodiscard]] static std::optional<V4l2Output> openFirstFree(const CameraFormat& format);

    // `bgr` has bgrSize() bytes. One thread at a time.
    void sendFrame(const std::uint8_t* bgr);

private:
    // Of the open device; closed with the object.
    class Device
    {
    public:
        explicit Device(int descriptor)
            : m_descriptor(descriptor)
        {}
        Device(Device&& other) noexcept
            : m_descriptor(std::exchange(other.m_descriptor, -1))
        {}
        ~Device();
        [[nodiscard]] int descriptor() const { return m_descriptor; }

    private:
        int m_descriptor;
    };

    V4l2Output(Device device, PixelLayout layout, const CameraFormat& format);

    [[nodiscard]] static std::optional<V4l2Output> open(const std::string& path,
                                                        const CameraFormat& format);

    Device m_device;
    PixelLayout m_layout;
    std::size_t m_size;
    LayoutConverter m_converter;
    std::unique_ptr<std::uint8_t[]> m_picture;
};

} // namespace pevrix
