#include "tools/phonesim/PatternSource_linux.h"

#include <libyuv.h>

#include <QBuffer>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace pevrix {

namespace {

constexpr std::int64_t kBitrate = 6'000'000;
constexpr int kKeyframeInterval = 60; // in frames
constexpr int kThumbnailWidth = 320;

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

// Two pixels share one colour sample.
int even(int value)
{
    return value & ~1;
}

int rampTop(QSize size)
{
    return even(size.height() * 3 / 4);
}

// The eight bars at 75 % over a grey ramp of 16 steps.
QImage drawBackground(QSize size)
{
    constexpr QRgb kBars[] = {0xFFBFBFBF, 0xFFBFBF00, 0xFF00BFBF, 0xFF00BF00,
                              0xFFBF00BF, 0xFFBF0000, 0xFF0000BF, 0xFF000000};
    constexpr int kSteps = 16;
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    const int top = rampTop(size);
    for (int bar = 0; bar < 8; ++bar) {
        const int left = even(size.width() * bar / 8);
        painter.fillRect(left, 0, size.width() - left, top, QColor(kBars[bar]));
    }
    for (int step = 0; step < kSteps; ++step) {
        const int left = even(size.width() * step / kSteps);
        const int grey = 255 * step / (kSteps - 1);
        painter.fillRect(left, top, size.width() - left, size.height() - top,
                         QColor(grey, grey, grey));
    }
    return image;
}

// A point that runs from 0 to `range` and back, in so many frames.
int swing(qint64 number, int frames, int range)
{
    const auto phase = static_cast<int>(number % frames) * 2;
    return range * (phase < frames ? phase : 2 * frames - phase) / frames;
}

} // namespace

PatternSource::PatternSource(const StreamDescription& stream, QString text)
    : m_stream(stream)
    , m_text(std::move(text))
    , m_background(drawBackground({stream.width, stream.height}))
{}

bool PatternSource::resize(QSize size)
{
    m_stream.width = size.width();
    m_stream.height = size.height();
    m_background = drawBackground(size);
    m_encoder.reset();
    return true;
}

QImage PatternSource::draw(qint64 number) const
{
    QImage image = m_background.copy();
    QPainter painter(&image);
    const int width = image.width();
    const int height = image.height();
    const int top = rampTop(image.size());
    const int side = even((height - top) / 2);
    painter.fillRect(swing(number, 150, width - side), top + side / 2, side, side,
                     QColor(255, 128, 0));
    const int disc = even(std::min(width, height) / 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(swing(number, 190, width - disc), swing(number, 110, top - disc), disc,
                        disc);

    const QRect plate(even(width / 6), even(height / 4), even(width * 2 / 3), even(height / 4));
    painter.fillRect(plate, Qt::black);
    painter.setPen(Qt::white);
    QFont font;
    font.setPixelSize(std::min(height / 11, width / 14));
    painter.setFont(font);
    painter.drawText(plate, Qt::AlignHCenter | Qt::AlignTop, QString::number(number));
    painter.drawText(plate, Qt::AlignHCenter | Qt::AlignBottom, m_text);
    return image;
}

QByteArray PatternSource::thumbnail()
{
    QBuffer jpeg;
    jpeg.open(QIODevice::WriteOnly);
    draw(0).scaledToWidth(kThumbnailWidth, Qt::SmoothTransformation).save(&jpeg, "JPEG");
    return jpeg.data();
}

bool PatternSource::open()
{
    silenceFFmpegLog();
    const AVCodec* codec = avcodec_find_encoder_by_name("libx264");
    m_encoder.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!m_encoder) {
        return false;
    }
    m_encoder->width = m_stream.width;
    m_encoder->height = m_stream.height;
    m_encoder->pix_fmt = AV_PIX_FMT_YUV420P;
    m_encoder->color_range = AVCOL_RANGE_MPEG;
    m_encoder->time_base = {1, m_stream.fps};
    m_encoder->framerate = {m_stream.fps, 1};
    m_encoder->gop_size = kKeyframeInterval;
    m_encoder->max_b_frames = 0;
    m_encoder->thread_count = 1;
    m_encoder->bit_rate = kBitrate;
    m_encoder->rc_max_rate = kBitrate;
    m_encoder->rc_buffer_size = kBitrate / 2; // half a second

    AVDictionary* raw = nullptr;
    av_dict_set(&raw, "profile", "baseline", 0);
    av_dict_set(&raw, "preset", "ultrafast", 0);
    av_dict_set(&raw, "tune", "zerolatency", 0);
    av_dict_set(&raw, "forced-idr", "1", 0);
    av_dict_set(&raw, "x264-params", "scenecut=0:slices=1", 0);
    const bool opened = avcodec_open2(m_encoder.get(), codec, &raw) >= 0;
    const DictionaryHandle leftovers(raw);
    m_frame = opened ? makeFrame(*m_encoder) : nullptr;
    m_packet.reset(av_packet_alloc());
    return m_frame && m_packet;
}

std::optional<AccessUnit> PatternSource::next(qint64 number, bool wantKeyframe)
{
    if ((!m_encoder && !open()) || av_frame_make_writable(m_frame.get()) < 0) {
        return std::nullopt;
    }
    const QImage image = draw(number);
    AVFrame& frame = *m_frame;
    libyuv::ARGBToI420(image.constBits(), static_cast<int>(image.bytesPerLine()), frame.data[0],
                       frame.linesize[0], frame.data[1], frame.linesize[1], frame.data[2],
                       frame.linesize[2], image.width(), image.height());
    frame.pts = number;
    frame.pict_type = wantKeyframe ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
    av_packet_unref(m_packet.get());
    if (avcodec_send_frame(m_encoder.get(), &frame) < 0 ||
        avcodec_receive_packet(m_encoder.get(), m_packet.get()) < 0) {
        return std::nullopt;
    }
    return AccessUnit{{m_packet->data, static_cast<std::size_t>(m_packet->size)},
                      (m_packet->flags & AV_PKT_FLAG_KEY) != 0};
}

} // namespace pevrix
