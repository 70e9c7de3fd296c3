#include "controller/LivePipeline.h"

#include <span>

namespace pevrix {

LivePipeline::LivePipeline(QObject* parent)
    : QObject(parent)
    , m_decoder([this](const std::uint8_t* pixels, int width, int height, std::int64_t) {
        onPicture(pixels, width, height);
    })
{}

void LivePipeline::startStream(int width, int height)
{
    m_firstFrameSeen = false;
    m_live =
        width > 0 && height > 0 &&
        m_decoder.initialize(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
    if (!m_live) {
        qWarning("Pevrix: the decoder does not take a stream of %d x %d", width, height);
    }
}

void LivePipeline::feed(QByteArrayView annexB, qint64 ptsUsec)
{
    if (m_live) {
        m_decoder.feed(std::span(reinterpret_cast<const std::uint8_t*>(annexB.data()),
                                 static_cast<std::size_t>(annexB.size())),
                       ptsUsec);
    }
}

void LivePipeline::goIdle()
{
    m_live = false;
    m_decoder.reset();
}

void LivePipeline::onPicture(const std::uint8_t* pixels, int width, int height)
{
    if (!m_live || width < 1 || height < 1) {
        return;
    }
    ++m_framesDecoded;
    if (!m_firstFrameSeen) {
        m_firstFrameSeen = true;
        qInfo("Pevrix: first picture of the stream, %dx%d", width, height);
    }
    // The decoder reuses its buffer for the next picture, so the preview gets pixels of its own.
    Q_EMIT frameReady(
        QImage(pixels, width, height, qsizetype{width} * 3, QImage::Format_BGR888).copy());
}

} // namespace pevrix
