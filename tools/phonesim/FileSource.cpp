#include "tools/phonesim/FileSource.h"

#include "tools/phonesim/AnnexB.h"
#include "video/FFmpegHandles.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <utility>

namespace pevrix {

namespace {

constexpr int kDefaultFps = 30; // for files that do not tell their rate

InputFormatHandle openInput(const QString& path)
{
    AVFormatContext* raw = nullptr;
    if (avformat_open_input(&raw, QFile::encodeName(path).constData(), nullptr, nullptr) < 0) {
        return {};
    }
    InputFormatHandle input(raw);
    return avformat_find_stream_info(raw, nullptr) < 0 ? InputFormatHandle() : std::move(input);
}

int frameRate(const AVStream& stream)
{
    const AVRational rate = stream.avg_frame_rate;
    const double fps = rate.num > 0 && rate.den > 0 ? av_q2d(rate) : kDefaultFps;
    return std::max(1, static_cast<int>(std::lround(fps)));
}

// MP4 stores lengths in place of start codes and the parameter sets beside the pictures; the
// filter makes Annex-B of it and passes what already is Annex-B through.
BitstreamFilterHandle openFilter(const AVStream& stream)
{
    AVBSFContext* raw = nullptr;
    const AVBitStreamFilter* filter = av_bsf_get_by_name("h264_mp4toannexb");
    if (!filter || av_bsf_alloc(filter, &raw) < 0) {
        return {};
    }
    BitstreamFilterHandle handle(raw);
    if (avcodec_parameters_copy(raw->par_in, stream.codecpar) < 0) {
        return {};
    }
    raw->time_base_in = stream.time_base;
    return av_bsf_init(raw) < 0 ? BitstreamFilterHandle() : std::move(handle);
}

// Collects access units; keyframes without parameter sets get the latest ones put in front.
class Collector
{
public:
    explicit Collector(Clip& clip)
        : m_clip(clip)
    {}

    [[nodiscard]] qint64 bytes() const { return m_bytes; }

    void add(const AVPacket& packet)
    {
        const std::span<const std::uint8_t> bytes(packet.data,
                                                  static_cast<std::size_t>(packet.size));
        Clip::Unit unit;
        unit.keyframe = isKeyframe(bytes);
        if (std::vector<std::uint8_t> sets = parameterSets(bytes); !sets.empty()) {
            m_sets = std::move(sets);
        } else if (unit.keyframe) {
            append(unit.bytes, m_sets);
        }
        append(unit.bytes, bytes);
        if (!m_clip.units.empty() || (unit.keyframe && !m_sets.empty())) {
            m_bytes += unit.bytes.size();
            m_clip.units.push_back(std::move(unit));
        }
    }

private:
    static void append(QByteArray& to, std::span<const std::uint8_t> bytes)
    {
        to.append(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
    }

    Clip& m_clip;
    std::vector<std::uint8_t> m_sets;
    qint64 m_bytes = 0;
};

bool collect(AVFormatContext& input, int stream, AVBSFContext& filter, Clip& clip)
{
    Collector collector(clip);
    const PacketHandle packet(av_packet_alloc());
    bool more = packet != nullptr;
    while (more && collector.bytes() <= kMaxClipBytes) {
        more = av_read_frame(&input, packet.get()) >= 0;
        if (more && packet->stream_index != stream) {
            av_packet_unref(packet.get());
            continue;
        }
        if (av_bsf_send_packet(&filter, more ? packet.get() : nullptr) < 0) {
            av_packet_unref(packet.get()); // a damaged packet; go on with the next
            continue;
        }
        while (av_bsf_receive_packet(&filter, packet.get()) >= 0) {
            collector.add(*packet);
            av_packet_unref(packet.get());
        }
    }
    return collector.bytes() <= kMaxClipBytes;
}

} // namespace

std::shared_ptr<const Clip> loadClip(const QString& path, QString& error)
{
    silenceFFmpegLog();
    const InputFormatHandle input = openInput(path);
    if (!input) {
        error = QStringLiteral("cannot read a video from \"%1\"").arg(path);
        return nullptr;
    }
    const int index = av_find_best_stream(input.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    const AVStream* stream = index >= 0 ? input->streams[index] : nullptr;
    const bool isH264 = stream && stream->codecpar->codec_id == AV_CODEC_ID_H264;
    const BitstreamFilterHandle filter = isH264 ? openFilter(*stream) : BitstreamFilterHandle();
    if (!filter) {
        error = QStringLiteral("\"%1\" has no H.264 video").arg(path);
        return nullptr;
    }
    auto clip = std::make_shared<Clip>();
    clip->description = {stream->codecpar->width, stream->codecpar->height, frameRate(*stream)};
    clip->reordered = stream->codecpar->video_delay > 0;
    if (!collect(*input, index, *filter, *clip)) {
        error = QStringLiteral("\"%1\" is too large to be kept in memory").arg(path);
        return nullptr;
    }
    if (clip->units.empty()) {
        error = QStringLiteral("\"%1\" has no keyframe to begin with").arg(path);
        return nullptr;
    }
    return clip;
}

FileSource::FileSource(std::shared_ptr<const Clip> clip, int fps)
    : m_clip(std::move(clip))
    , m_fps(fps > 0 ? fps : m_clip->description.fps)
{}

StreamDescription FileSource::description() const
{
    return {m_clip->description.width, m_clip->description.height, m_fps};
}

std::optional<AccessUnit> FileSource::next(std::int64_t, bool wantKeyframe)
{
    // The first unit is a keyframe, so the search ends.
    while (wantKeyframe && !m_clip->units[m_position].keyframe) {
        m_position = (m_position + 1) % m_clip->units.size();
    }
    const Clip::Unit& unit = m_clip->units[m_position];
    m_position = (m_position + 1) % m_clip->units.size();
    return AccessUnit{{reinterpret_cast<const std::uint8_t*>(unit.bytes.constData()),
                       static_cast<std::size_t>(unit.bytes.size())},
                      unit.keyframe};
}

} // namespace pevrix
