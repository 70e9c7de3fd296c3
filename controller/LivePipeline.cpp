#include "controller/LivePipeline.h"

#include "controller/Card.h"
#include "controller/Log.h"
#include "phone/Log.h"
#include "picture/PictureSize.h"
#include "system/Memory.h"
#include "video/VideoBackEnd.h"

#include <new>
#include <span>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kDefaultPacing = 33ms; // 30 pictures a second

// Making a camera anew takes more than 100 ms, in which nothing else happens. A phone that is
// turned to and fro never needs more; one that does so on purpose gets no more.
constexpr int kResizesAtOnce = 4;
constexpr auto kResizeInterval = 500ms;

bool isPadding(QSize size)
{
    constexpr int kMost = LivePipeline::kMaxPadding;
    return size.width() >= 0 && size.width() <= kMost && size.height() >= 0 &&
           size.height() <= kMost;
}

} // namespace

LivePipeline::LivePipeline(IVirtualCameraSink& sink, PipelineTime time, QObject* parent)
    : QObject(parent)
    , m_time(std::move(time))
    , m_decoder([this](const std::uint8_t* pixels, int width, int height, std::int64_t) {
        onPicture(pixels, {width, height});
    })
    , m_camera(sink)
    , m_cards(m_camera)
    , m_resizes(kResizesAtOnce, kResizeInterval)
{
    m_pacingTimer.setTimerType(Qt::PreciseTimer);
    m_pacingTimer.setInterval(kDefaultPacing);
    connect(&m_pacingTimer, &QTimer::timeout, this, &LivePipeline::pacingTick);
    connect(&m_stallTimer, &QTimer::timeout, this, &LivePipeline::checkStall);
    if (m_time.timersRun) {
        m_stallTimer.start(StallDetector::kCheckInterval);
    }
}

LivePipeline::~LivePipeline()
{
    blockSignals(true); // the receivers may be half destroyed
    stop();
}

void LivePipeline::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged();
}

void LivePipeline::showIdle()
{
    feedCard(drawIdleCard(cameraSize(), m_pairAddress));
    setState(State::Idle);
}

void LivePipeline::setPairAddress(const QString& address)
{
    m_pairAddress = address;
    if (m_state == State::Idle) {
        feedCard(drawIdleCard(cameraSize(), m_pairAddress));
    }
}

void LivePipeline::feedCard(std::vector<std::uint8_t> pixels)
{
    const QSize size = cameraSize();
    m_cards.setCard(pixels.empty() ? nullptr
                                   : sharePicture(size.width(), size.height(), std::move(pixels)));
    m_cards.start();
}

void LivePipeline::clearQueue()
{
    m_pacingTimer.stop();
    m_queue.clear();
}

// False when that was done too often; the camera stays as it is then.
bool LivePipeline::resizeCamera(QSize size)
{
    if (!m_resizes.take(m_time.now())) {
        return false;
    }
    if (m_camera.resize(size)) {
        return true;
    }
    if (const auto note = m_streamLines.admit()) {
        qCWarning(cameraLog, "Pevrix: there is no virtual camera of %d x %d%s", size.width(),
                  size.height(), note->c_str());
    }
    return true;
}

void LivePipeline::expectStream()
{
    if (m_loading.joinable()) {
        return;
    }
    m_loading = std::jthread([] {
        if (const std::string problem = loadVideoBackEnd(); !problem.empty()) {
            qCWarning(videoLog, "Pevrix: video can be neither decoded nor recorded: %s",
                      problem.c_str());
        }
    });
}

void LivePipeline::startStream(QSize size, bool direct)
{
    if (m_state == State::Stopped) {
        return;
    }
    if (!isPictureSize(size.width(), size.height())) {
        // The pictures will tell their real size.
        if (const auto note = m_streamLines.admit()) {
            qCWarning(videoLog, "Pevrix: a stream announced as %d x %d%s", size.width(),
                      size.height(), note->c_str());
        }
        size = cameraSize();
    }
    m_cards.stop();
    if (isRecording() && m_recording.size() != size) {
        m_recording.stop(RecordingReport::Outcome::Resized);
    }
    // Where the camera may not follow now, the pictures tell its size later.
    const bool resized = (!m_camera.exists() || cameraSize() != size) && resizeCamera(size);
    // Once what came together with this has been read: of several descriptions the last one counts.
    if (!m_decoderSize && m_time.timersRun) {
        QMetaObject::invokeMethod(this, &LivePipeline::startDecoder, Qt::QueuedConnection);
    }
    m_decoderSize = size;
    m_parameterSets.clear();
    clearQueue();
    m_pool.clear();
    m_direct = direct;
    m_firstFrameSeen = false;
    m_stall.streamStarts(m_time.now(), m_framesDecoded);
    if (resized || m_state != State::Live) {
        setState(State::Live);
    }
}

void LivePipeline::startDecoder()
{
    const auto size = std::exchange(m_decoderSize, std::nullopt);
    if (size && !m_decoder.initialize(static_cast<std::uint32_t>(size->width()),
                                      static_cast<std::uint32_t>(size->height()))) {
        if (const auto note = m_streamLines.admit()) {
            qCWarning(videoLog, "Pevrix: there is no decoder for the stream%s", note->c_str());
        }
    }
}

// Camera or decoder may have found no memory when the stream began.
void LivePipeline::retry()
{
    if (!m_camera.exists() && (isLive() || m_state == State::Idle)) {
        static_cast<void>(m_camera.create());
    }
    if (isLive() && !m_decoderSize && !m_decoder.initialized()) {
        m_decoderSize = cameraSize();
        startDecoder();
        decode(m_parameterSets, 0);
    }
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
    startDecoder();
    const auto before = m_time.now();
    if (decode(accessUnit, ptsUsec)) {
        m_decodeTime.total += m_time.now() - before;
        ++m_decodeTime.count;
    }
}

void LivePipeline::feedParameterSets(QByteArrayView annexB)
{
    startDecoder();
    constexpr qsizetype kMost = 4096; // phones send some ten bytes
    m_parameterSets = annexB.size() <= kMost ? annexB.toByteArray() : QByteArray();
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
    SharedPicture picture;
    try {
        picture = fitToCamera(pixels, size);
    } catch (const std::bad_alloc&) {
        if (const auto note = m_streamLines.admit()) {
            qCWarning(videoLog, "Pevrix: no memory for a picture of %d x %d%s", size.width(),
                      size.height(), note->c_str());
        }
    }
    ++m_framesDecoded;
    if (!m_firstFrameSeen) {
        m_firstFrameSeen = true;
        if (const auto note = m_streamLines.admit()) {
            qCInfo(videoLog, "Pevrix: first picture of the stream, %dx%d%s", size.width(),
                   size.height(), note->c_str());
        }
        Q_EMIT pictureCame();
    }
    follow(m_stall.pictureCame());
    if (!picture) {
        return;
    }
    if (m_direct) {
        deliver(picture);
        return;
    }
    m_queue.push(std::move(picture));
    if (m_time.timersRun && !m_pacingTimer.isActive()) {
        m_pacingTimer.start();
    }
}

// The picture in the camera's size: as it is, without the decoder's padding, or with the camera
// made anew for it. Null when the camera cannot follow so fast.
SharedPicture LivePipeline::fitToCamera(const std::uint8_t* pixels, QSize size)
{
    const QSize camera = cameraSize();
    const QSize padding = size - camera;
    if (padding.isNull()) {
        const auto picture = m_pool.take(size.width(), size.height());
        m_decoder.swapPixels(picture->pixels);
        return picture;
    }
    if (isPadding(padding)) {
        return m_pool.takeCopy(pixels, pictureBytes(size.width(), 1), camera.width(),
                               camera.height());
    }
    const QSize adopted = withoutPadding(size);
    // The card's thread may be sending a card of the old size to the old camera.
    m_cards.stop();
    if (!resizeCamera(adopted)) {
        return nullptr;
    }
    if (isRecording() && m_recording.size() != adopted) {
        m_recording.stop(RecordingReport::Outcome::Resized); // a file has one size
    }
    if (const auto note = m_streamLines.admit()) {
        qCInfo(cameraLog,
               "Pevrix: virtual camera adopts decoder output %dx%d (STREAM_INFO said %dx%d)%s",
               adopted.width(), adopted.height(), camera.width(), camera.height(), note->c_str());
    }
    m_queue.clear();
    m_pool.clear();
    return fitToCamera(pixels, size);
}

QSize LivePipeline::withoutPadding(QSize picture) const
{
    const auto shown = m_decoder.shownSize();
    const QSize padding = picture - QSize(shown.width, shown.height);
    return isPadding(padding) ? picture - padding : picture;
}

void LivePipeline::pacingTick()
{
    if (!m_queue.isEmpty()) {
        deliver(m_queue.pop());
    }
}

void LivePipeline::deliver(const SharedPicture& picture)
{
    for (IPictureConsumer* consumer : m_consumers) {
        consumer->show(picture);
    }
}

// The image keeps the picture, so that its pixels need not be copied.
void LivePipeline::Preview::show(const SharedPicture& picture)
{
    const auto release = [](void* kept) {
        delete static_cast<SharedPicture*>(kept);
    };
    Q_EMIT m_pipeline.frameReady(QImage(picture->pixels.data(), picture->width, picture->height,
                                        qsizetype{picture->width} * 3, QImage::Format_BGR888,
                                        release, new SharedPicture(picture)));
}

void LivePipeline::checkStall()
{
    m_recording.check();
    retry();
    if (isLive()) {
        follow(m_stall.check(m_time.now(), m_framesDecoded));
    }
}

void LivePipeline::follow(StallDetector::Change change)
{
    switch (change) {
    case StallDetector::Change::None:
        break;
    case StallDetector::Change::Stalled:
        enterStall();
        break;
    case StallDetector::Change::Resumed:
        clearStall();
        break;
    }
}

void LivePipeline::enterStall()
{
    clearQueue();
    feedCard(drawPausedCard(cameraSize()));
    qCInfo(phoneLog, "Pevrix: stall -> paused card (active phone stopped sending video)");
    setState(State::Stalled);
}

void LivePipeline::clearStall()
{
    m_cards.stop();
    qCInfo(phoneLog, "Pevrix: stall cleared -> live feed resumed");
    setState(State::Live);
}

void LivePipeline::goIdle()
{
    if (!isLive()) {
        return;
    }
    clearQueue();
    showIdle();
    if (m_time.timersRun) {
        QMetaObject::invokeMethod(this, &LivePipeline::rest, Qt::QueuedConnection);
    }
}

// The program may run for weeks without a phone. The next stream makes its decoder anew anyway.
void LivePipeline::rest()
{
    if (!isLive()) {
        m_pool.clear();
        m_decoder.reset();
        returnFreeMemory();
    }
}

bool LivePipeline::startRecording(const QString& path)
{
    return isLive() && outputEnabled() &&
           m_recording.start(path, cameraSize(), static_cast<int>(CameraOutput::kFps));
}

void LivePipeline::stop()
{
    stopRecording();
    m_cards.stop();
    clearQueue();
    m_decoderSize.reset();
    m_decoder.reset();
    m_camera.remove();
    setState(State::Stopped);
}

} // namespace pevrix
