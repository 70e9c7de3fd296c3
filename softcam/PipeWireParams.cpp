#include "softcam/PipeWireParams.h"

#include <algorithm>
#include <spa/buffer/buffer.h>
#include <spa/buffer/meta.h>
#include <spa/param/buffers.h>
#include <spa/param/format-utils.h>
#include <spa/param/video/format-utils.h>

namespace pevrix {

namespace {

// Enough for a program that queues a few. Less than 8 is too little for PipeWire's own V4L2
// emulation.
constexpr int kBuffers = 8;
constexpr int kMinBuffers = 2;
constexpr int kMaxBuffers = 32;

spa_video_format videoFormat(PixelLayout layout)
{
    switch (layout) {
    case PixelLayout::None:
    case PixelLayout::BgrBottomUp: // is another platform's
        break;
    case PixelLayout::Bgr:
        return SPA_VIDEO_FORMAT_BGR;
    case PixelLayout::Yuy2:
        return SPA_VIDEO_FORMAT_YUY2;
    case PixelLayout::Nv12:
        return SPA_VIDEO_FORMAT_NV12;
    case PixelLayout::I420:
        return SPA_VIDEO_FORMAT_I420;
    }
    return SPA_VIDEO_FORMAT_UNKNOWN;
}

// The colours are named, because some programs take BT.709 for granted in pictures of this size.
spa_video_info_raw videoInfo(PixelLayout layout, const CameraFormat& format)
{
    spa_video_info_raw info{};
    info.format = videoFormat(layout);
    info.size = SPA_RECTANGLE(format.width, format.height);
    info.framerate = SPA_FRACTION(format.rateNumerator, format.rateDenominator);
    if (layout != PixelLayout::Bgr) {
        info.color_range = SPA_VIDEO_COLOR_RANGE_16_235;
        info.color_matrix = SPA_VIDEO_COLOR_MATRIX_BT601;
    }
    return info;
}

} // namespace

void PipeWireParams::add(const void* pod)
{
    m_list.at(m_count++) = static_cast<const spa_pod*>(pod);
}

void PipeWireParams::addFormats(const OfferedFormats& formats)
{
    for (const CameraFormat& format : formats.all()) {
        for (const PixelLayout layout : kOfferedLayouts) {
            if (suits(layout, format)) {
                const spa_video_info_raw info = videoInfo(layout, format);
                add(spa_format_video_raw_build(&m_builder, SPA_PARAM_EnumFormat, &info));
            }
        }
    }
}

void PipeWireParams::addBuffers(PixelLayout layout, const CameraFormat& format)
{
    // At most 8192 * 8192 * 3.
    const auto size = static_cast<int>(pictureSize(layout, format));
    const auto stride = static_cast<int>(rowSize(layout, format));
    add(spa_pod_builder_add_object(
        &m_builder, SPA_TYPE_OBJECT_ParamBuffers, SPA_PARAM_Buffers, SPA_PARAM_BUFFERS_buffers,
        SPA_POD_CHOICE_RANGE_Int(kBuffers, kMinBuffers, kMaxBuffers), SPA_PARAM_BUFFERS_blocks,
        SPA_POD_Int(1), SPA_PARAM_BUFFERS_size, SPA_POD_Int(size), SPA_PARAM_BUFFERS_stride,
        SPA_POD_Int(stride), SPA_PARAM_BUFFERS_dataType,
        SPA_POD_CHOICE_FLAGS_Int(1 << SPA_DATA_MemFd)));
    add(spa_pod_builder_add_object(&m_builder, SPA_TYPE_OBJECT_ParamMeta, SPA_PARAM_Meta,
                                   SPA_PARAM_META_type, SPA_POD_Id(SPA_META_Header),
                                   SPA_PARAM_META_size, SPA_POD_Int(sizeof(spa_meta_header))));
}

std::optional<AgreedFormat> agreedFormat(const spa_pod* param, const OfferedFormats& offered)
{
    spa_video_info info{};
    if (spa_format_parse(param, &info.media_type, &info.media_subtype) < 0 ||
        info.media_type != SPA_MEDIA_TYPE_video || info.media_subtype != SPA_MEDIA_SUBTYPE_raw ||
        spa_format_video_raw_parse(param, &info.info.raw) < 0) {
        return std::nullopt;
    }
    const spa_video_info_raw& raw = info.info.raw;
    const auto layout = std::ranges::find(kOfferedLayouts, raw.format, videoFormat);
    const auto formats = offered.all();
    const auto format = std::ranges::find_if(formats, [&raw](const CameraFormat& one) {
        return raw.size.width == one.width && raw.size.height == one.height;
    });
    if (layout == kOfferedLayouts.end() || format == formats.end() || !suits(*layout, *format)) {
        return std::nullopt;
    }
    return AgreedFormat{*layout, *format};
}

} // namespace pevrix
