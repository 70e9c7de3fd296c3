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

// Sides of a picture that a reader may wish for when it is not the camera's own.
constexpr std::uint32_t kMinSide = 16;
constexpr std::uint32_t kMaxSide = 4096;

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

// The sizes that suit a layout are multiples of this one.
spa_rectangle sizeStep(PixelLayout layout)
{
    const std::uint32_t height = layout == PixelLayout::Nv12 || layout == PixelLayout::I420 ? 2 : 1;
    std::uint32_t width = 1;
    while (!suits(layout, {.width = width, .height = height})) {
        width *= 2;
    }
    return {.width = width, .height = height};
}

} // namespace

void PipeWireParams::add(const void* pod)
{
    m_list.at(m_count++) = static_cast<const spa_pod*>(pod);
}

void PipeWireParams::addFormats(const CameraFormat& format)
{
    for (const PixelLayout layout : kOfferedLayouts) {
        if (suits(layout, format)) {
            addFormat(layout, format);
        }
    }
    for (const PixelLayout layout : kOfferedLayouts) {
        addOtherSizes(layout, format);
    }
}

void PipeWireParams::addFormat(PixelLayout layout, const CameraFormat& format)
{
    const spa_video_info_raw info = videoInfo(layout, format);
    add(spa_format_video_raw_build(&m_builder, SPA_PARAM_EnumFormat, &info));
}

void PipeWireParams::addOtherSizes(PixelLayout layout, const CameraFormat& format)
{
    const spa_video_info_raw info = videoInfo(layout, format);
    const spa_rectangle usual{.width = 1280, .height = 720};
    const spa_rectangle least{.width = kMinSide, .height = kMinSide};
    const spa_rectangle most{.width = kMaxSide, .height = kMaxSide};
    const spa_rectangle step = sizeStep(layout);
    spa_pod_frame frame{};
    spa_pod_builder_push_object(&m_builder, &frame, SPA_TYPE_OBJECT_Format, SPA_PARAM_EnumFormat);
    spa_pod_builder_add(&m_builder, SPA_FORMAT_mediaType, SPA_POD_Id(SPA_MEDIA_TYPE_video),
                        SPA_FORMAT_mediaSubtype, SPA_POD_Id(SPA_MEDIA_SUBTYPE_raw),
                        SPA_FORMAT_VIDEO_format, SPA_POD_Id(info.format), SPA_FORMAT_VIDEO_size,
                        SPA_POD_CHOICE_STEP_Rectangle(&usual, &least, &most, &step),
                        SPA_FORMAT_VIDEO_framerate, SPA_POD_Fraction(&info.framerate), 0);
    if (layout != PixelLayout::Bgr) {
        spa_pod_builder_add(&m_builder, SPA_FORMAT_VIDEO_colorRange, SPA_POD_Id(info.color_range),
                            SPA_FORMAT_VIDEO_colorMatrix, SPA_POD_Id(info.color_matrix), 0);
    }
    add(spa_pod_builder_pop(&m_builder, &frame));
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

std::optional<AgreedFormat> agreedFormat(const spa_pod* param, const CameraFormat& offered)
{
    spa_video_info info{};
    if (spa_format_parse(param, &info.media_type, &info.media_subtype) < 0 ||
        info.media_type != SPA_MEDIA_TYPE_video || info.media_subtype != SPA_MEDIA_SUBTYPE_raw ||
        spa_format_video_raw_parse(param, &info.info.raw) < 0) {
        return std::nullopt;
    }
    const spa_video_info_raw& raw = info.info.raw;
    CameraFormat picture = offered;
    picture.width = raw.size.width;
    picture.height = raw.size.height;
    const auto isSide = [](std::uint32_t side) {
        return side >= kMinSide && side <= kMaxSide;
    };
    const auto layout = std::ranges::find(kOfferedLayouts, raw.format, videoFormat);
    if ((picture != offered && !(isSide(picture.width) && isSide(picture.height))) ||
        layout == kOfferedLayouts.end() || !suits(*layout, picture)) {
        return std::nullopt;
    }
    return AgreedFormat{*layout, picture};
}

} // namespace pevrix
