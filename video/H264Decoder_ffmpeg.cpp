#include "video/ColorConversion.h"
#include "video/FFmpegHandles.h"
#include "video/H264Decoder.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>
#include <thread>
#include <utility>

namespace pevrix {

namespace {

// Phones send one slice a picture as a rule and a few at most; further threads would only idle.
constexpr unsigned kMaxSliceThreads = 4;

// False when there is no memory for the picture, or its samples are not 8-bit 4:2:0. Full-range
// pictures are converted like the others.
bool convert(const AVFrame& frame, std::vector<std::uint8_t>& bgr)
try {
    const int width = frame.width;
    const int height = frame.height;
    bgr.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
    switch (frame.format) {
    case AV_PIX_FMT_YUV420P:
    case AV_PIX_FMT_YUVJ420P:
        convertToBgr(I420Picture{.y = frame.data[0],
                                 .u = frame.data[1],
                                 .v = frame.data[2],
                                 .yStride = frame.linesize[0],
                                 .uvStride = frame.linesize[1],
                                 .width = width,
                                 .height = height},
                     bgr.data());
        return true;
    case AV_PIX_FMT_NV12:
        convertToBgr(Nv12Picture{.y = frame.data[0],
                                 .uv = frame.data[1],
                                 .yStride = frame.linesize[0],
                                 .uvStride = frame.linesize[1],
                                 .width = width,
                                 .height = height},
                     bgr.data());
        return true;
    default:
        return false;
    }
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace

struct H264Decoder::Transform
{
    CodecContextHandle context;
    PacketHandle packet;
    FrameHandle frame;
    BufferHandle input;

    [[nodiscard]] bool open();
    [[nodiscard]] bool fillPacket(std::span<const std::uint8_t> data, std::int64_t timestampUs);
};

bool H264Decoder::Transform::open()
{
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_H264);
    context.reset(avcodec_alloc_context3(codec));
    packet.reset(av_packet_alloc());
    frame.reset(av_frame_alloc());
    if (codec == nullptr || context == nullptr || packet == nullptr || frame == nullptr) {
        return false;
    }
    // Frame threads would hold back a picture each. UNALIGNED: a crop at the left edge is applied
    // to the pixel; the conversion reads from any address.
    context->flags |= AV_CODEC_FLAG_LOW_DELAY | AV_CODEC_FLAG_UNALIGNED;
    context->thread_type = FF_THREAD_SLICE;
    context->thread_count =
        static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, kMaxSliceThreads));
    context->max_pixels = kMaxPicturePixels;
    return avcodec_open2(context.get(), codec, nullptr) >= 0;
}

// The packet's buffer is kept and filled anew: without one, the library would allocate and copy
// for each packet.
bool H264Decoder::Transform::fillPacket(std::span<const std::uint8_t> data,
                                        std::int64_t timestampUs)
{
    if (data.size() > INT_MAX / 2) {
        return false;
    }
    const std::size_t needed = data.size() + AV_INPUT_BUFFER_PADDING_SIZE;
    av_packet_unref(packet.get());
    if (input == nullptr || input->size < needed || av_buffer_is_writable(input.get()) == 0) {
        input.reset(av_buffer_alloc(needed + needed / 2));
    }
    if (input == nullptr) {
        return false;
    }
    std::memcpy(input->data, data.data(), data.size());
    std::memset(input->data + data.size(), 0, AV_INPUT_BUFFER_PADDING_SIZE);
    packet->buf = av_buffer_ref(input.get());
    packet->data = input->data;
    packet->size = static_cast<int>(data.size());
    packet->pts = timestampUs;
    return packet->buf != nullptr;
}

H264Decoder::H264Decoder(FrameCallback onFrame)
    : m_onFrame(std::move(onFrame))
{}

H264Decoder::~H264Decoder() = default;

void H264Decoder::setFrameCallback(FrameCallback onFrame)
{
    m_onFrame = std::move(onFrame);
}

bool H264Decoder::initialize(std::uint32_t /*width*/, std::uint32_t /*height*/)
{
    silenceFFmpegLog();
    reset();
    auto transform = std::make_unique<Transform>();
    if (!transform->open()) {
        return false;
    }
    m_transform = std::move(transform);
    return true;
}

bool H264Decoder::initialized() const
{
    return m_transform != nullptr;
}

void H264Decoder::feed(std::span<const std::uint8_t> data, std::int64_t timestampUs)
{
    if (m_transform == nullptr || data.empty() || !m_transform->fillPacket(data, timestampUs)) {
        return;
    }
    AVCodecContext* context = m_transform->context.get();
    const AVPacket* packet = m_transform->packet.get();
    if (avcodec_send_packet(context, packet) == AVERROR(EAGAIN)) {
        drain();
        avcodec_send_packet(context, packet);
    }
    av_packet_unref(m_transform->packet.get());
    drain();
}

void H264Decoder::drain()
{
    if (m_transform == nullptr) {
        return;
    }
    AVFrame* frame = m_transform->frame.get();
    while (avcodec_receive_frame(m_transform->context.get(), frame) >= 0) {
        if (m_onFrame && convert(*frame, m_bgr)) {
            m_onFrame(m_bgr.data(), frame->width, frame->height,
                      frame->pts == AV_NOPTS_VALUE ? 0 : frame->pts);
        }
    }
}

void H264Decoder::reset()
{
    m_transform.reset();
}

} // namespace pevrix
