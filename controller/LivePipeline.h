#pragma once

#include "camera/IVirtualCameraSink.h"
#include "controller/CardSender.h"
#include "controller/PacingQueue.h"
#include "phone/LogLimiter.h"
#include "video/H264Decoder.h"
#include "video/Mp4Recorder.h"

#include <QByteArrayView>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <utility>
#include <vector>

namespace pevrix {

/// What the pipeline takes from the outside of time; tests drive it by hand.
struct PipelineTime
{
    std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
    bool timersRun = true; // false: the test calls pacingTick() and checkStall()
};

/// The way of the active phone's video through the program: encoded bytes in; pictures out to the
/// camera, the recorder and the preview. Keeps the camera fed with a card while there is no video.
/// Everything but the card sender's thread runs on the GUI thread, and no feed() returns before
/// the pictures that it completed are delivered or queued.
class LivePipeline final : public QObject
{
    Q_OBJECT

public:
    // NotStarted --showIdle()--> Idle --startStream()--> Live <--> Stalled
    // Live, Stalled --startStream()--> Live; Live, Stalled --goIdle()--> Idle
    // any --stop()--> Stopped --showIdle()--> Idle
    // A stream also starts from NotStarted: a phone on a cable needs no listening server.
    enum class State
    {
        NotStarted, // nothing feeds the camera
        Idle,       // the idle card does
        Live,       // decoded pictures do
        Stalled,    // the paused card does: the phone stopped sending
        Stopped,    // nothing does
    };

    /// Without a new picture for longer than this, live video counts as stalled.
    static constexpr std::chrono::milliseconds kStallLimit{1500};
    static constexpr std::chrono::milliseconds kStallCheckInterval{400};
    /// The camera's rate in pictures a second, whatever the phone sends.
    static constexpr float kCameraFps = 30;
    /// Decoders round sizes up to whole macroblocks; more than this is another size.
    static constexpr int kMaxPadding = 15;

    /// `sink` must outlive the pipeline.
    explicit LivePipeline(IVirtualCameraSink& sink, PipelineTime time = {},
                          QObject* parent = nullptr);
    ~LivePipeline() override;

    /// Creates the camera. False when there is none to be had; nothing has changed then.
    [[nodiscard]] bool createCamera();

    /// Sends the idle card from now on. To be called once the pairing address is known.
    void showIdle();

    /// The address that the idle card shows; a card that is being sent is redrawn.
    void setPairAddress(const QString& address);

    /// Video of this size begins; a size that no picture has leaves the camera as it is until the
    /// first picture. `direct`: each picture is delivered as it is decoded (a cable has no jitter),
    /// instead of one per frame interval. Ignored once stopped.
    void startStream(QSize size, bool direct);

    /// The interval between deliveries; rates outside 1 to 120 are ignored.
    void setFrameRate(int fps);

    /// One access unit, or the parameter sets of those to come. Ignored unless live.
    void feed(QByteArrayView accessUnit, qint64 ptsUsec);
    void feedParameterSets(QByteArrayView annexB);

    /// The last phone has left. Does nothing unless live.
    void goIdle();

    /// Ends recording, card, decoder and camera.
    void stop();

    /// Whether pictures go to the camera and the recorder may start.
    [[nodiscard]] bool outputEnabled() const { return m_outputEnabled; }
    void toggleOutput() { m_outputEnabled = !m_outputEnabled; }

    /// Records to a new file; false unless live with the output enabled.
    [[nodiscard]] bool startRecording(const QString& path);
    void stopRecording();
    [[nodiscard]] bool isRecording() const { return m_recorder.isOpen(); }

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isLive() const
    {
        return m_state == State::Live || m_state == State::Stalled;
    }
    [[nodiscard]] bool isFeedingCards() const { return m_cards.isRunning(); }
    [[nodiscard]] QSize cameraSize() const { return m_cameraSize; }
    [[nodiscard]] qint64 framesSent() const { return m_framesSent; }
    [[nodiscard]] qint64 framesDecoded() const { return m_framesDecoded; }

    /// Time spent decoding and the number of access units it was spent on, since the last call.
    struct DecodeTime
    {
        std::chrono::nanoseconds total{0};
        qint64 count = 0;
    };
    DecodeTime takeDecodeTime() { return std::exchange(m_decodeTime, {}); }

    /// The timers' work: delivers the oldest queued picture; looks for a stall or its end.
    void pacingTick();
    void checkStall();

Q_SIGNALS:
    /// A picture for the preview; the image owns its pixels.
    void frameReady(const QImage& image);
    void stateChanged();

private:
    using Point = std::chrono::steady_clock::time_point;

    void setState(State state);
    void feedCard(CardSender::Card card);
    CardSender::Card drawIdle() const;
    void clearQueue();
    void recreateCamera(QSize size);
    bool decode(QByteArrayView annexB, qint64 ptsUsec);
    void onPicture(const std::uint8_t* pixels, QSize size);
    const std::uint8_t* fitToCamera(const std::uint8_t* pixels, QSize size);
    void enterStall();
    void clearStall();
    void deliver(const std::uint8_t* pixels);
    [[nodiscard]] std::size_t cameraBytes() const;

    const PipelineTime m_time;
    IVirtualCameraSink& m_sink;
    H264Decoder m_decoder;
    Mp4Recorder m_recorder;
    bool m_recordingStarted = false; // and not stopped; it may have ended by itself
    std::atomic<bool> m_outputEnabled = true;
    std::atomic<std::int64_t> m_framesSent = 0;
    CardSender m_cards;
    qint64 m_framesDecoded = 0;
    QSize m_cameraSize{1280, 720};
    QString m_pairAddress;
    State m_state = State::NotStarted;
    bool m_direct = false;
    bool m_firstFrameSeen = false;
    PacingQueue m_queue;
    std::vector<std::uint8_t> m_cropped;
    QTimer m_pacingTimer;
    QTimer m_stallTimer;
    Point m_lastProgress;
    LogLimiter m_streamLines; // a phone may describe streams as often as it likes
    qint64 m_framesAtLastCheck = 0;
    DecodeTime m_decodeTime;
};

} // namespace pevrix
