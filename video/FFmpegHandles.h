#pragma once

// The only place that includes FFmpeg's headers and frees its objects.

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavcodec/bsf.h>
#include <libavformat/avformat.h>
#include <libavutil/log.h>
#include <libavutil/opt.h>
}

#include <memory>

namespace pevrix {

// Turns a freeing function that takes the address of a pointer into a deleter.
template <auto Free>
struct FFmpegFree
{
    template <typename T>
    void operator()(T* object) const
    {
        Free(&object);
    }
};

// An output context together with the file that it has open.
struct OutputFormatFree
{
    void operator()(AVFormatContext* context) const
    {
        if (context->pb != nullptr && (context->oformat->flags & AVFMT_NOFILE) == 0) {
            avio_closep(&context->pb);
        }
        avformat_free_context(context);
    }
};

using CodecContextHandle = std::unique_ptr<AVCodecContext, FFmpegFree<avcodec_free_context>>;
using FrameHandle = std::unique_ptr<AVFrame, FFmpegFree<av_frame_free>>;
using PacketHandle = std::unique_ptr<AVPacket, FFmpegFree<av_packet_free>>;
using BufferHandle = std::unique_ptr<AVBufferRef, FFmpegFree<av_buffer_unref>>;
using DictionaryHandle = std::unique_ptr<AVDictionary, FFmpegFree<av_dict_free>>;
using InputFormatHandle = std::unique_ptr<AVFormatContext, FFmpegFree<avformat_close_input>>;
using BitstreamFilterHandle = std::unique_ptr<AVBSFContext, FFmpegFree<av_bsf_free>>;
using OutputFormatHandle = std::unique_ptr<AVFormatContext, OutputFormatFree>;

// FFmpeg writes to standard error by itself, a line per damaged picture. The level belongs to the
// whole process, so it is set once and never touched again. Safe from any thread.
inline void silenceFFmpegLog()
{
    static const bool silenced = (av_log_set_level(AV_LOG_QUIET), true);
    static_cast<void>(silenced);
}

} // namespace pevrix
