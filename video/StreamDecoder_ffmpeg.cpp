#include "video/StreamDecoder_ffmpeg.h"

#include "picture/PictureSize.h"
#include "video/ColorConversion.h"
#include "video/FFmpegHandles.h"

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

class StreamDecoder final : public IStreamDecoder
{
public:
    [[nodiscard]] bool open();
    [[nodiscard]] bool send(std::span<const std::uint8_t> data, std::int64_t timestampUs) override;
    [[nodiscard]] std::optional<DecodedPicture> receive(std::vector<std::uint8_t>& bgr) override;

private:
    [[nodiscard]] bool fillPacket(std::span<const std::uint8_t> data, std::int64_t timestampUs);

    CodecContextHandle m_context;
    PacketHandle m_packet;
    FrameHandle m_frame;
    BufferHandle m_input;
};

bool StreamDecoder::open()
{
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_H264);
    m_context.reset(avcodec_alloc_context3(codec));
    m_packet.reset(av_packet_alloc());
    m_frame.reset(av_frame_alloc());
    if (codec == nullptr || m_context == nullptr || m_packet == nullptr || m_frame == nullptr) {
        return false;
    }
    // Frame threads would hold back a picture each. UNALIGNED: a crop at the left edge is applied
    // to the pixel; the conversion reads from any address.
    m_context->flags |= AV_CODEC_FLAG_LOW_DELAY | AV_CODEC_FLAG_UNALIGNED;
    m_context->thread_type = FF_THREAD_SLICE;
    m_context->thread_count =
        static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, kMaxSliceThreads));
    m_context->max_pixels = kMaxPicturePixels;
    return avcodec_open2(m_context.get(), codec, nullptr) >= 0;
}

// The packet's buffer is kept and filled anew: without one, the library would allocate and copy
// for each packet.
bool StreamDecoder::fillPacket(std::span<const std::uint8_t> data, std::int64_t timestampUs)
{
    if (data.size() > INT_MAX / 2) {
        return false;
    }
    const std::size_t needed = data.size() + AV_INPUT_BUFFER_PADDING_SIZE;
    av_packet_unref(m_packet.get());
    if (m_input == nullptr || m_input->size < needed || av_buffer_is_writable(m_input.get()) == 0) {
        m_input.reset(av_buffer_alloc(needed + needed / 2));
    }
    if (m_input == nullptr) {
        return false;
    }
    std::memcpy(m_input->data, data.data(), data.size());
    std::memset(m_input->data + data.size(), 0, AV_INPUT_BUFFER_PADDING_SIZE);
    m_packet->buf = av_buffer_ref(m_input.get());
    m_packet->data = m_input->data;
    m_packet->size = static_cast<int>(data.size());
    m_packet->pts = timestampUs;
    return m_packet->buf != nullptr;
}

bool StreamDecoder::send(std::span<const std::uint8_t> data, std::int64_t timestampUs)
{
    if (!fillPacket(data, timestampUs)) {
        return true; // data that cannot be decoded is dropped
    }
    const int result = avcodec_send_packet(m_context.get(), m_packet.get());
    av_packet_unref(m_packet.get());
    return result != AVERROR(EAGAIN);
}

std::optional<DecodedPicture> StreamDecoder::receive(std::vector<std::uint8_t>& bgr)
{
    while (avcodec_receive_frame(m_context.get(), m_frame.get()) >= 0) {
        if (convert(*m_frame, bgr)) {
            return DecodedPicture{.width = m_frame->width,
                                  .height = m_frame->height,
                                  .ptsUsec = m_frame->pts == AV_NOPTS_VALUE ? 0 : m_frame->pts};
        }
    }
    return {};
}

} // namespace

std::unique_ptr<IStreamDecoder> openStreamDecoder()
{
    silenceFFmpegLog();
    auto decoder = std::make_unique<StreamDecoder>();
    if (!decoder->open()) {
        return nullptr;
    }
    return decoder;
}

} // namespace pevrix
