#include "controller/LivePipeline.h"

#include "controller/Card.h"
#include "picture/PictureSize.h"

#include <QDir>
#include <QFileInfo>

#include <cstring>
#include <filesystem>
#include <span>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kDefaultPacing = 33ms; // 30 pictures a second

} // namespace

LivePipeline::LivePipeline(IVirtualCameraSink& sink, PipelineTime time, QObject* parent)
    : QObject(parent)
    , m_time(std::move(time))
    , m_sink(sink)
    , m_decoder([this](const std::uint8_t* pixels, int width, int height, std::int64_t) {
        onPicture(pixels, {width, height});
    })
    , m_cards(sink, m_outputEnabled, m_framesSent)
    , m_lastProgress(m_time.now())
{
    m_pacingTimer.setTimerType(Qt::PreciseTimer);
    m_pacingTimer.setInterval(kDefaultPacing);
    connect(&m_pacingTimer, &QTimer::timeout, this, &LivePipeline::pacingTick);
    connect(&m_stallTimer, &QTimer::timeout, this, &LivePipeline::checkStall);
    if (m_time.timersRun) {
        m_stallTimer.start(kStallCheckInterval);
    }
}

LivePipeline::~LivePipeline()
{
    blockSignals(true); // whoever listens may be half destroyed
    stop();
}

void LivePipeline::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

bool LivePipeline::createCamera()
{
    return m_sink.start(m_cameraSize.width(), m_cameraSize.height(), kCameraFps);
}

void LivePipeline::showIdle()
{
    feedCard(drawIdle());
    setState(State::Idle);
}

CardSender::Card LivePipeline::drawIdle() const
{
    return std::make_shared<const std::vector<std::uint8_t>>(
        drawIdleCard(m_cameraSize, m_pairAddress));
}

void LivePipeline::setPairAddress(const QString& address)
{
    m_pairAddress = address;
    if (m_state == State::Idle) {
        m_cards.setCard(drawIdle());
    }
}

void LivePipeline::feedCard(CardSender::Card card)
{
    m_cards.setCard(std::move(card));
    m_cards.start(m_cameraSize.width(), m_cameraSize.height());
}

void LivePipeline::clearQueue()
{
    m_pacingTimer.stop();
    m_queue.clear();
}

void LivePipeline::recreateCamera(QSize size)
{
    m_sink.stop();
    // Without a camera the pictures still go to the preview and are counted.
    if (!m_sink.start(size.width(), size.height(), kCameraFps)) {
        if (const auto note = m_streamLines.admit()) {
            qWarning("Pevrix: there is no virtual camera of %d x %d%s", size.width(), size.height(),
                     note->c_str());
        }
    }
    m_cameraSize = size;
}

void LivePipeline::startStream(QSize size, bool direct)
{
    if (m_state == State::Stopped) {
        return;
    }
    if (!isPictureSize(size.width(), size.height())) {
        // The pictures themselves will tell.
        if (const auto note = m_streamLines.admit()) {
            qWarning("Pevrix: a stream announced as %d x %d%s", size.width(), size.height(),
                     note->c_str());
        }
        size = m_cameraSize;
    }
    m_cards.stop();
    if (m_recorder.isOpen() && QSize(static_cast<int>(m_recorder.width()),
                                     static_cast<int>(m_recorder.height())) != size) {
        stopRecording();
    }
    if (!m_sink.isActive() || m_cameraSize != size) {
        recreateCamera(size);
    }
    if (!m_decoder.initialize(static_cast<std::uint32_t>(size.width()),
                              static_cast<std::uint32_t>(size.height()))) {
        if (const auto note = m_streamLines.admit()) {
            qWarning("Pevrix: there is no decoder for the stream%s", note->c_str());
        }
    }
    clearQueue();
    m_direct = direct;
    m_firstFrameSeen = false;
    m_framesAtLastCheck = m_framesDecoded;
    m_lastProgress = m_time.now();
    setState(State::Live);
}

void LivePipeline::setFrameRate(int fps)
{
    // Setting the interval it has would start the timer's wait anew.
    if (fps >= 1 && fps <= 120 && m_pacingTimer.interval() != 1000 / fps) {
        m_pacingTimer.setInterval(1000 / fps);
    }
}

void LivePipeline::feed(QByteArrayView accessUnit, qint64 ptsUsec)
{
    const Point before = m_time.now();
    if (decode(accessUnit, ptsUsec)) {
        m_decodeTime.total += m_time.now() - before;
        ++m_decodeTime.count;
    }
}

void LivePipeline::feedParameterSets(QByteArrayView annexB)
{
    decode(annexB, 0);
}

bool LivePipeline::decode(QByteArrayView annexB, qint64 ptsUsec)
{
    if (!isLive() || !m_decoder.initialized()) {
        return false;
    }
    m_decoder.feed(std::span(reinterpret_cast<const std::uint8_t*>(annexB.data()),
                             static_cast<std::size_t>(annexB.size())),
                   ptsUsec);
    return true;
}

void LivePipeline::onPicture(const std::uint8_t* pixels, QSize size)
{
    if (!isLive() || size.isEmpty()) {
        return;
    }
    const std::uint8_t* fitted = fitToCamera(pixels, size);
    ++m_framesDecoded;
    if (!m_firstFrameSeen) {
        m_firstFrameSeen = true;
        if (const auto note = m_streamLines.admit()) {
            qInfo("Pevrix: first picture of the stream, %dx%d%s", size.width(), size.height(),
                  note->c_str());
        }
    }
    if (m_state == State::Stalled) {
        clearStall();
    }
    if (m_direct) {
        deliver(fitted);
        return;
    }
    m_queue.push({fitted, cameraBytes()});
    if (m_time.timersRun && !m_pacingTimer.isActive()) {
        m_pacingTimer.start();
    }
}

// The picture in the camera's size: as it is, without the decoder's padding, or with the camera
// made anew for it.
const std::uint8_t* LivePipeline::fitToCamera(const std::uint8_t* pixels, QSize size)
{
    const QSize padding = size - m_cameraSize;
    if (padding.isNull()) {
        return pixels;
    }
    if (padding.width() >= 0 && padding.height() >= 0 && padding.width() <= kMaxPadding &&
        padding.height() <= kMaxPadding) {
        const auto from = static_cast<std::size_t>(size.width()) * 3;
        const auto to = static_cast<std::size_t>(m_cameraSize.width()) * 3;
        m_cropped.resize(cameraBytes());
        for (std::size_t y = 0; y < static_cast<std::size_t>(m_cameraSize.height()); ++y) {
            std::memcpy(&m_cropped[y * to], pixels + y * from, to);
        }
        return m_cropped.data();
    }
    if (const auto note = m_streamLines.admit()) {
        qInfo("Pevrix: virtual camera adopts decoder output %dx%d (STREAM_INFO said %dx%d)%s",
              size.width(), size.height(), m_cameraSize.width(), m_cameraSize.height(),
              note->c_str());
    }
    // A paused card of the old size may be on its way to the camera that goes.
    m_cards.stop();
    recreateCamera(size);
    m_queue.clear();
    return pixels;
}

std::size_t LivePipeline::cameraBytes() const
{
    return pictureBytes(m_cameraSize.width(), m_cameraSize.height());
}

void LivePipeline::pacingTick()
{
    if (!m_queue.isEmpty()) {
        deliver(m_queue.front().data());
        m_queue.pop();
    }
}

void LivePipeline::deliver(const std::uint8_t* pixels)
{
    if (m_outputEnabled) {
        m_sink.sendFrame(pixels);
        ++m_framesSent;
    }
    if (m_recorder.isOpen() && static_cast<int>(m_recorder.width()) == m_cameraSize.width() &&
        static_cast<int>(m_recorder.height()) == m_cameraSize.height()) {
        m_recorder.writeFrame(pixels);
    } else if (!m_recorder.isOpen()) {
        stopRecording(); // if it has ended by itself
    }
    // The buffer is used again for another picture, so the preview gets pixels of its own.
    Q_EMIT frameReady(QImage(pixels, m_cameraSize.width(), m_cameraSize.height(),
                             qsizetype{m_cameraSize.width()} * 3, QImage::Format_BGR888)
                          .copy());
}

void LivePipeline::checkStall()
{
    const Point now = m_time.now();
    const bool moved = m_framesDecoded != m_framesAtLastCheck;
    if (moved) {
        m_framesAtLastCheck = m_framesDecoded;
        m_lastProgress = now;
    }
    if (m_state == State::Stalled && moved) {
        clearStall();
    } else if (m_state == State::Live && m_firstFrameSeen && now - m_lastProgress > kStallLimit) {
        enterStall();
    }
}

void LivePipeline::enterStall()
{
    clearQueue();
    feedCard(std::make_shared<const std::vector<std::uint8_t>>(drawPausedCard(m_cameraSize)));
    qInfo("Pevrix: stall -> paused card (active phone stopped sending video)");
    setState(State::Stalled);
}

void LivePipeline::clearStall()
{
    m_cards.stop();
    qInfo("Pevrix: stall cleared -> live feed resumed");
    setState(State::Live);
}

void LivePipeline::goIdle()
{
    if (!isLive()) {
        return;
    }
    clearQueue();
    showIdle();
}

bool LivePipeline::startRecording(const QString& path)
{
    if (!isLive() || !m_outputEnabled) {
        return false;
    }
    QDir().mkpath(QFileInfo(path).path());
    m_recordingStarted = m_recorder.open(std::filesystem::path(path.toStdU16String()),
                                         static_cast<std::uint32_t>(m_cameraSize.width()),
                                         static_cast<std::uint32_t>(m_cameraSize.height()),
                                         static_cast<int>(kCameraFps));
    if (!m_recordingStarted) {
        qWarning("Pevrix: cannot record to %s", qUtf8Printable(path));
    }
    return m_recordingStarted;
}

void LivePipeline::stopRecording()
{
    if (!std::exchange(m_recordingStarted, false)) {
        return;
    }
    if (!m_recorder.isOpen()) {
        qWarning("Pevrix: the recording ended early, because it could not be written");
    }
    m_recorder.close();
    if (const auto dropped = m_recorder.droppedPictures(); dropped > 0) {
        qWarning("Pevrix: the recording lacks %llu pictures; the encoder was too slow",
                 static_cast<unsigned long long>(dropped));
    }
}

void LivePipeline::stop()
{
    stopRecording();
    m_cards.stop();
    clearQueue();
    m_decoder.reset();
    m_sink.stop();
    setState(State::Stopped);
}

} // namespace pevrix
