#pragma once

#include "controller/Allowance.h"
#include "controller/CardSender.h"
#include "controller/PacingQueue.h"
#include "controller/Recording.h"
#include "controller/StallDetector.h"
#include "phone/LogLimiter.h"
#include "video/H264Decoder.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>
#include <QTimer>

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>
#include <utility>

namespace pevrix {

// The pipeline's clock and timers; tests drive them by hand.
struct PipelineTime
{
    using Clock = std::chrono::steady_clock;

    std::function<Clock::time_point()> now = Clock::now;
    bool timersRun = true; // false: the test calls pacingTick() and checkStall()
};

// The way of the active phone's video through the program: encoded bytes come in, pictures go out
// to the camera, the recorder and the preview. While there is no video, the camera gets a card.
// Everything but the card sender's thread runs on the GUI thread, and no feed() returns before
// the pictures that it completed are delivered or queued.
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
        NotStarted, // the camera gets nothing
        Idle,       // the camera gets the idle card
        Live,       // the camera gets decoded pictures
        Stalled,    // the camera gets the paused card: the phone stopped sending
        Stopped,    // the camera gets nothing
    };

    // Decoders round sizes up to whole macroblocks; more than this is another size.
    static constexpr int kMaxPadding = 15;

    // `sink` must outlive the pipeline.
    explicit LivePipeline(IVirtualCameraSink& sink, PipelineTime time = {},
                          QObject* parent = nullptr);
    ~LivePipeline() override;

    // Creates the camera. False, and nothing changes, when the system has no camera to give.
    [[nodiscard]] bool createCamera() { return m_camera.create(); }

    // Sends the idle card from now on. To be called once the pairing address is known.
    void showIdle();

    // The address that the idle card shows; a card that is being sent is redrawn.
    void setPairAddress(const QString& address);

    // A phone is there: loads what decodes its video, in a thread of its own, so that the first
    // picture need not wait for it.
    void expectStream();

    // Video of this size begins; a size that no picture has leaves the camera as it is until the
    // first picture, and so do sizes that change faster than cameras can be made. `direct`: each
    // picture is delivered as it is decoded (a cable has no jitter), instead of one per frame
    // interval. Ignored once stopped.
    void startStream(QSize size, bool direct);

    // The interval between deliveries; rates outside 1 to 120 are ignored.
    void setFrameRate(int fps);

    // One access unit, or the parameter sets of those to come. Ignored unless live.
    void feed(QByteArrayView accessUnit, qint64 ptsUsec);
    void feedParameterSets(QByteArrayView annexB);

    // The last phone has left. Does nothing unless live.
    void goIdle();

    // Ends recording, card, decoder and camera.
    void stop();

    // Whether pictures go to the camera and the recorder may start.
    [[nodiscard]] bool outputEnabled() const { return m_camera.isEnabled(); }
    void toggleOutput() { m_camera.toggle(); }

    // Records to a new file; false unless live with the output enabled.
    [[nodiscard]] bool startRecording(const QString& path);
    void stopRecording() { m_recording.stop(); }
    // The active phone's own pictures have not come yet: a stream begins, or another phone is to
    // send one.
    [[nodiscard]] bool awaitsPicture() const { return !m_firstFrameSeen; }
    void awaitPicture() { m_firstFrameSeen = false; }
    [[nodiscard]] bool isRecording() const { return m_recording.isRunning(); }
    [[nodiscard]] QString lastRecordingPath() const { return m_recording.path(); }

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isLive() const
    {
        return m_state == State::Live || m_state == State::Stalled;
    }
    [[nodiscard]] bool isFeedingCards() const { return m_cards.isRunning(); }
    [[nodiscard]] QSize cameraSize() const { return m_camera.size(); }
    [[nodiscard]] qint64 framesSent() const { return m_camera.framesSent(); }
    [[nodiscard]] qint64 framesDecoded() const { return m_framesDecoded; }

    // Time spent decoding and the number of access units it was spent on, since the last call.
    struct DecodeTime
    {
        std::chrono::nanoseconds total{0};
        qint64 count = 0;
    };
    DecodeTime takeDecodeTime() { return std::exchange(m_decodeTime, {}); }

    // The timers' work: delivers the oldest queued picture; looks for a stall or its end, and makes
    // what could not be made before.
    void pacingTick();
    void checkStall();

Q_SIGNALS:
    // A picture for the preview; the image keeps its pixels, which nobody writes to any more.
    void frameReady(const QImage& image);
    void stateChanged();
    // The first picture of a stream: nothing is awaited any more.
    void pictureCame();
    void recordingEnded(const RecordingReport& report);

private:
    // The consumer that shows pictures in the window.
    class Preview final : public IPictureConsumer
    {
    public:
        explicit Preview(LivePipeline& pipeline)
            : m_pipeline(pipeline)
        {}
        void show(const SharedPicture& picture) override;

    private:
        LivePipeline& m_pipeline;
    };

    void setState(State state);
    void feedCard(std::vector<std::uint8_t> pixels);
    void rest();
    void clearQueue();
    bool resizeCamera(QSize size);
    void startDecoder();
    void retry();
    bool decode(QByteArrayView annexB, qint64 ptsUsec);
    void onPicture(const std::uint8_t* pixels, QSize size);
    SharedPicture fitToCamera(const std::uint8_t* pixels, QSize size);
    [[nodiscard]] QSize withoutPadding(QSize picture) const;
    void follow(StallDetector::Change change);
    void enterStall();
    void clearStall();
    void deliver(const SharedPicture& picture);

    const PipelineTime m_time;
    H264Decoder m_decoder;
    PicturePool m_pool;
    CameraOutput m_camera;
    Recording m_recording{[this](const RecordingReport& report) {
        Q_EMIT recordingEnded(report);
    }};
    Preview m_preview{*this};
    const std::array<IPictureConsumer*, 3> m_consumers{&m_camera, &m_recording, &m_preview};
    CardSender m_cards;
    QString m_pairAddress;
    State m_state = State::NotStarted;
    bool m_direct = false;
    bool m_firstFrameSeen = false; // of the stream
    qint64 m_framesDecoded = 0;
    PacingQueue m_queue;
    QTimer m_pacingTimer;
    StallDetector m_stall;
    QTimer m_stallTimer;
    std::optional<QSize> m_decoderSize; // of a stream that the decoder does not know of yet
    QByteArray m_parameterSets;         // of the stream
    Allowance m_resizes;
    std::jthread m_loading;
    LogLimiter m_streamLines; // a phone may describe streams as often as it likes
    DecodeTime m_decodeTime;
};

} // namespace pevrix
