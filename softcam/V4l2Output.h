#pragma once

#include "softcam/PictureFormat.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace pevrix {

// A v4l2loopback device fed with the camera's pictures, for programs that know no PipeWire. The
// kernel module copies what is written and keeps the newest, so a write waits for no reader.
// It does not tell whether there are any.
class V4l2Output
{
public:
    // The first loopback device that nobody feeds yet and that takes pictures of this format.
    [[nodiscard]] static std::optional<V4l2Output> openFirstFree(const CameraFormat& format);

    V4l2Output(V4l2Output&& other) noexcept;
    V4l2Output& operator=(V4l2Output&&) = delete;
    ~V4l2Output();

    // `bgr` has bgrSize() bytes. One thread at a time.
    void sendFrame(const std::uint8_t* bgr);

private:
    V4l2Output(int device, PixelLayout layout, const CameraFormat& format);

    [[nodiscard]] static std::optional<V4l2Output> open(const std::string& path,
                                                        const CameraFormat& format);

    int m_device;
    PixelLayout m_layout;
    std::size_t m_size;
    LayoutConverter m_converter;
    std::unique_ptr<std::uint8_t[]> m_picture;
};

} // namespace pevrix
