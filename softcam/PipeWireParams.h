#pragma once

#include "softcam/PictureFormat.h"

#include <array>
#include <cstdint>
#include <optional>
#include <spa/pod/builder.h>

namespace pevrix {

// The layouts that the camera offers, the best first: YUY2 and NV12 are what most programs know.
inline constexpr std::array kOfferedLayouts{PixelLayout::Yuy2, PixelLayout::Nv12, PixelLayout::I420,
                                            PixelLayout::Bgr};

// Parameters of the camera's stream in PipeWire's binary form, collected for one call.
class PipeWireParams
{
public:
    PipeWireParams() = default;
    PipeWireParams(const PipeWireParams&) = delete; // the list points into the bytes
    PipeWireParams& operator=(const PipeWireParams&) = delete;

    // What the camera offers: first its own size in each layout, as plain values, because browsers
    // do not list an entry that leaves a choice. Then every other size, because Firefox remembers
    // what it listed when it first saw the camera, and keeps asking for that.
    void addFormats(const CameraFormat& format);

    // What buffers have to be like once a layout is agreed on: in one block, in memory that can be
    // shared, with a header for the time stamp.
    void addBuffers(PixelLayout layout, const CameraFormat& format);

    [[nodiscard]] const spa_pod** list() { return m_list.data(); }
    [[nodiscard]] std::uint32_t count() const { return m_count; }

private:
    static constexpr std::size_t kMost = 2 * kOfferedLayouts.size();

    void add(const void* pod);
    void addFormat(PixelLayout layout, const CameraFormat& format);
    void addOtherSizes(PixelLayout layout, const CameraFormat& format);

    alignas(8) std::array<std::uint8_t, kMost * 256> m_bytes{}; // an entry takes about 200
    spa_pod_builder m_builder{.data = m_bytes.data(),
                              .size = static_cast<std::uint32_t>(m_bytes.size()),
                              ._padding = 0,
                              .state = {},
                              .callbacks = {}};
    std::array<const spa_pod*, kMost> m_list{};
    std::uint32_t m_count = 0;
};

// What a reader has agreed on.
struct AgreedFormat
{
    PixelLayout layout = PixelLayout::None;
    CameraFormat picture;
};

// What a format parameter from outside agrees on; none when it is not one that was offered with
// addFormats().
[[nodiscard]] std::optional<AgreedFormat> agreedFormat(const spa_pod* param,
                                                       const CameraFormat& offered);

} // namespace pevrix
