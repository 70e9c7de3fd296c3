#include "tools/phonesim/H264Encoder.h"

#include <array>

namespace pevrix {

namespace {

FrameHandle makeFrame(const AVCodecContext& context)
{
    FrameHandle frame(av_frame_alloc());
    if (frame) {
        frame->format = context.pix_fmt;
        frame->width = context.width;
        frame->height = context.height;
        if (av_frame_get_buffer(frame.get(), 0) < 0) {
            frame.reset();
        }
    }
    return frame;
}

void applySettings(AVCodecContext& context, const H264Encoder::Settings& settings)
{
    context.width = settings.width;
    context.height = settings.height;
    context.pix_fmt = AV_PIX_FMT_YUV420P;
    context.color_range = AVCOL_RANGE_MPEG;
    context.time_base = {1, settings.fps};
    context.framerate = {settings.fps, 1};
    context.gop_size = settings.keyframeInterval;
    context.max_b_frames = 0;
    context.thread_count = 1;
    context.bit_rate = std::int64_t{settings.bitrateKbps} * 1000;
    context.rc_max_rate = context.bit_rate;
    context.rc_buffer_size = settings.bitrateKbps * 1000 / 2; // half a second
}

} // namespace

bool H264Encoder::fail(const char* step, int code)
{
    std::array<char, AV_ERROR_MAX_STRING_SIZE> reason{};
    av_strerror(code, reason.data(), reason.size());
    m_error = QStringLiteral("the encoder failed to %1: %2")
                  .arg(QString::fromLatin1(step), QString::fromLocal8Bit(reason.data()));
    m_context.reset();
    return false;
}

bool H264Encoder::open(const Settings& settings)
{
    silenceFFmpegLog();
    const AVCodec* codec = avcodec_find_encoder_by_name("libx264");
    m_context.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!m_context) {
        m_error = QStringLiteral("there is no libx264 encoder");
        return false;
    }
    applySettings(*m_context, settings);

    AVDictionary* raw = nullptr;
    av_dict_set(&raw, "profile", "baseline", 0);
    av_dict_set(&raw, "preset", "ultrafast", 0);
    av_dict_set(&raw, "tune", "zerolatency", 0);
    av_dict_set(&raw, "forced-idr", "1", 0);
    av_dict_set(&raw, "x264-params", "scenecut=0:slices=1", 0);
    const int code = avcodec_open2(m_context.get(), codec, &raw);
    const DictionaryHandle leftovers(raw);
    if (code < 0) {
        return fail("open", code);
    }
    m_frame = makeFrame(*m_context);
    m_packet.reset(av_packet_alloc());
    m_encoded = 0;
    return (m_frame && m_packet) || fail("open", AVERROR(ENOMEM));
}

std::optional<PictureView> H264Encoder::picture()
{
    if (const int code = av_frame_make_writable(m_frame.get()); code < 0) {
        fail("take a picture", code);
        return std::nullopt;
    }
    return PictureView{m_frame->data[0],     m_frame->data[1],     m_frame->data[2],
                       m_frame->linesize[0], m_frame->linesize[1], m_frame->width,
                       m_frame->height};
}

std::optional<AccessUnit> H264Encoder::encode(bool keyframe)
{
    m_frame->pts = m_encoded++;
    m_frame->pict_type = keyframe ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
    av_packet_unref(m_packet.get());
    int code = avcodec_send_frame(m_context.get(), m_frame.get());
    if (code >= 0) {
        code = avcodec_receive_packet(m_context.get(), m_packet.get());
    }
    if (code < 0) {
        fail("encode", code);
        return std::nullopt;
    }
    return AccessUnit{{m_packet->data, static_cast<std::size_t>(m_packet->size)},
                      (m_packet->flags & AV_PKT_FLAG_KEY) != 0};
}

} // namespace pevrix
