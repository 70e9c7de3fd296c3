#include "video/Mp4Writer_ffmpeg.h"

#include "video/Mp4Recorder.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace pevrix {

namespace {

// The longest time between keyframes: how far a player that jumps has to decode.
constexpr std::int64_t kKeyframeInterval = Mp4Writer::kTimeBase.den;

// A frame thread of the encoder holds back a picture.
constexpr unsigned kMaxEncoderThreads = 4;

// Half of the processors: decoding, the camera and the window need the others.
int encoderThreads()
{
    return static_cast<int>(
        std::clamp(std::thread::hardware_concurrency() / 2, 1U, kMaxEncoderThreads));
}

// The samples are made by the formula of BT.601, limited range, from pixels meant for a screen.
void describeColors(AVCodecContext& encoder)
{
    encoder.colorspace = AVCOL_SPC_SMPTE170M;
    encoder.color_range = AVCOL_RANGE_MPEG;
    encoder.color_primaries = AVCOL_PRI_BT709;
    encoder.color_trc = AVCOL_TRC_BT709;
    encoder.chroma_sample_location = AVCHROMA_LOC_CENTER;
}

} // namespace

Mp4Writer::Mp4Writer(std::filesystem::path path)
    : m_path(std::move(path))
    , m_packet(av_packet_alloc())
{}

std::unique_ptr<Mp4Writer> Mp4Writer::create(const std::filesystem::path& path, int width,
                                             int height, int fps,
                                             const std::vector<std::string>& encoders)
{
    silenceFFmpegLog();
    std::unique_ptr<Mp4Writer> writer(new Mp4Writer(path));
    const bool encoderOpen =
        writer->m_packet != nullptr &&
        std::any_of(encoders.begin(), encoders.end(), [&](const std::string& name) {
            return writer->openEncoder(name, width, height, fps);
        });
    if (!encoderOpen || !writer->openFile()) {
        return nullptr;
    }
    if (!writer->startFile()) {
        writer->keepWholeFragments();
        return nullptr;
    }
    return writer;
}

bool Mp4Writer::openEncoder(const std::string& name, int width, int height, int fps)
{
    const AVCodec* codec = avcodec_find_encoder_by_name(name.c_str());
    if (codec == nullptr) {
        return false;
    }
    m_encoder.reset(avcodec_alloc_context3(codec));
    if (m_encoder == nullptr) {
        return false;
    }
    m_encoder->width = width;
    m_encoder->height = height;
    m_encoder->sample_aspect_ratio = {1, 1};
    m_encoder->pix_fmt = AV_PIX_FMT_YUV420P;
    m_encoder->time_base = kTimeBase;
    m_encoder->framerate = {fps, 1};
    m_encoder->bit_rate = Mp4Recorder::kBitsPerSecond;
    m_encoder->profile = AV_PROFILE_H264_MAIN;
    m_encoder->max_b_frames = 0;
    m_encoder->gop_size = fps; // encode() asks for more when pictures come more slowly
    m_encoder->thread_count = encoderThreads();
    m_encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_FRAME_DURATION;
    describeColors(*m_encoder);
    if (std::string_view(name) == "libx264") {
        // The fastest preset that the Main profile is not wasted on (it codes with CABAC): 18 ms of
        // one core for 1920 x 1080, where the next slower one takes 23.
        av_opt_set(m_encoder->priv_data, "preset", "superfast", 0);
    }
    // A keyframe that is asked for is one that a player can start at. Not every encoder knows it.
    av_opt_set(m_encoder->priv_data, "forced-idr", "1", 0);
    return avcodec_open2(m_encoder.get(), codec, nullptr) >= 0;
}

bool Mp4Writer::openFile()
{
    AVFormatContext* output = nullptr;
    avformat_alloc_output_context2(&output, nullptr, "mp4", nullptr);
    m_output.reset(output);
    if (m_output == nullptr) {
        return false;
    }
    // With the protocol named, a colon in the path means nothing.
    if (avio_open(&m_output->pb, ("file:" + m_path.string()).c_str(), AVIO_FLAG_WRITE) >= 0) {
        return true;
    }
    // It may have made the file, and then had no memory for its buffer.
    std::error_code ignored;
    if (std::filesystem::is_regular_file(m_path, ignored) &&
        std::filesystem::is_empty(m_path, ignored)) {
        std::filesystem::remove(m_path, ignored);
    }
    return false;
}

bool Mp4Writer::startFile()
{
    AVStream* stream = avformat_new_stream(m_output.get(), nullptr);
    if (stream == nullptr ||
        avcodec_parameters_from_context(stream->codecpar, m_encoder.get()) < 0) {
        return false;
    }
    stream->time_base = kTimeBase;
    stream->avg_frame_rate = m_encoder->framerate;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "+hybrid_fragmented+frag_keyframe", 0);
    av_dict_set(&options, "frag_duration", "500000", 0); // microseconds
    av_dict_set(&options, "flush_packets", "1", 0);
    const int result = avformat_write_header(m_output.get(), &options);
    const DictionaryHandle unused(options);
    m_headerBytes = avio_tell(m_output->pb);
    return result >= 0;
}

bool Mp4Writer::encode(AVFrame& frame)
{
    const bool keyframe = !m_lastKeyframe || frame.pts - *m_lastKeyframe >= kKeyframeInterval;
    frame.pict_type = keyframe ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
    if (keyframe) {
        m_lastKeyframe = frame.pts;
    }
    // A file that was deleted could be written to until the disk is full.
    std::error_code ignored;
    const bool gone = keyframe && !std::filesystem::exists(m_path, ignored);
    if (!gone && avcodec_send_frame(m_encoder.get(), &frame) >= 0 && writePackets()) {
        return true;
    }
    keepWholeFragments();
    return false;
}

// Writes what the encoder has ready.
bool Mp4Writer::writePackets()
{
    for (;;) {
        const int received = avcodec_receive_packet(m_encoder.get(), m_packet.get());
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF) {
            return true;
        }
        if (received < 0) {
            return false;
        }
        av_packet_rescale_ts(m_packet.get(), kTimeBase, m_output->streams[0]->time_base);
        m_packet->stream_index = 0;
        if (av_write_frame(m_output.get(), m_packet.get()) < 0) {
            return false;
        }
        m_wholeBytes = avio_tell(m_output->pb);
    }
}

bool Mp4Writer::finish()
{
    if (!m_lastKeyframe) { // no picture came, and a file without any plays nowhere
        keepWholeFragments();
        return true;
    }
    const bool written = avcodec_send_frame(m_encoder.get(), nullptr) >= 0 && writePackets() &&
                         av_write_frame(m_output.get(), nullptr) >= 0;
    if (!written) {
        keepWholeFragments();
        return false;
    }
    m_wholeBytes = avio_tell(m_output->pb);
    const std::string start = readStart();
    const bool complete = av_write_trailer(m_output.get()) >= 0 && avio_closep(&m_output->pb) >= 0;
    if (!complete) {
        keepWholeFragments();
        restoreStart(start);
    }
    return complete;
}

// Completing the file hides its fragments within one box, whose head is written over what follows
// the file's first boxes.
std::string Mp4Writer::readStart() const
{
    constexpr std::int64_t kBoxHead = 16; // with a 64-bit size
    std::string start(static_cast<std::size_t>(m_headerBytes + kBoxHead), '\0');
    std::ifstream file(m_path, std::ios::binary);
    file.read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return start;
}

void Mp4Writer::restoreStart(const std::string& start) const
{
    std::fstream file(m_path, std::ios::binary | std::ios::in | std::ios::out);
    file.write(start.data(), static_cast<std::streamsize>(start.size()));
}

// Closes the file and cuts off the fragment or index that did not fit. A file without any fragment
// is removed.
void Mp4Writer::keepWholeFragments()
{
    m_output.reset();
    std::error_code ignored;
    if (m_wholeBytes <= m_headerBytes) {
        std::filesystem::remove(m_path, ignored);
    } else {
        std::filesystem::resize_file(m_path, static_cast<std::uintmax_t>(m_wholeBytes), ignored);
    }
}

} // namespace pevrix
