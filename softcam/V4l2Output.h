#pragma once

#include "softcam/PictureConverter.h"
#include "softcam/PictureSchedule.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace pevrix {

// A v4l2loopback device fed with the camera's pictures, for programs that know no PipeWire. The
// kernel module copies what is written and keeps the newest, so a write waits for no reader.
// It does not tell whether there are any, so the device keeps the format that it was opened with.
// Used by one thread at a time.
class V4l2Output
{
public:
    // An open device, closed with the object.
    class Device
    {
    public:
        explicit Device(int descriptor)
            : m_descriptor(descriptor)
        {}
        Device(Device&& other) noexcept
            : m_descriptor(std::exchange(other.m_descriptor, -1))
        {}
        Device& operator=(Device&& other) noexcept
        {
            std::swap(m_descriptor, other.m_descriptor);
            return *this;
        }
        ~Device();
        [[nodiscard]] int descriptor() const { return m_descriptor; }

    private:
        int m_descriptor;
    };

    // Feeds a device that takes pictures of this format. Throws std::bad_alloc.
    V4l2Output(Device device, const CameraFormat& format);

    // The first loopback device that nobody feeds yet and that takes pictures of this format.
    [[nodiscard]] static std::optional<V4l2Output> openFirstFree(const CameraFormat& format);

    // A picture of whatever size. It is left out where there is no memory to convert it.
    void show(const BgrPicture& picture);

    // When to show the next one.
    [[nodiscard]] PictureSchedule& schedule() { return m_schedule; }

private:
    [[nodiscard]] static std::optional<V4l2Output> open(const std::string& path,
                                                        const CameraFormat& format);

    Device m_device;
    std::size_t m_size;
    PictureConverter m_converter;
    PictureSchedule m_schedule;
    std::unique_ptr<std::uint8_t[]> m_picture;
};

} // namespace pevrix
