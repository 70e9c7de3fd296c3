#include "controller/LivePipeline.h"

#include "controller/Card.h"
#include "controller/LiveStatistics.h"
#include "tests/support/Clip.h"
#include "tools/doubles/WaitUntil.h"

#include <gmock/gmock.h>

#include <cstring>
#include <mutex>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using Pixels = std::vector<std::uint8_t>;

// A camera that keeps what it is sent. The card sender's thread sends too.
class RecordingSink final : public IVirtualCameraSink
{
public:
    bool start(int width, int height, float) override
    {
        sizes.append(QSize(width, height)); // no card is being sent then
        return m_active = m_active || available;
    }

    void sendFrame(const std::uint8_t* pixels) override
    {
        const std::lock_guard lock(m_mutex);
        const QSize size = sizes.constLast();
        const auto bytes = static_cast<std::size_t>(size.width() * size.height() * 3);
        m_pictures.emplace_back(pixels, pixels + bytes);
    }

    void stop() override { m_active = false; }
    [[nodiscard]] bool isActive() const override { return m_active; }
    [[nodiscard]] bool isAppConnected() const override { return false; }

    [[nodiscard]] std::vector<Pixels> take()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_pictures, {});
    }

    [[nodiscard]] bool hasPictures() const
    {
        const std::lock_guard lock(m_mutex);
        return !m_pictures.empty();
    }

    bool available = true;
    QList<QSize> sizes; // of every camera that was asked for

private:
    mutable std::mutex m_mutex;
    bool m_active = false;
    std::vector<Pixels> m_pictures;
};

// What the decoder alone makes of the first units.
std::vector<Pixels> decode(const Clip& clip, std::size_t count)
{
    std::vector<Pixels> pictures;
    H264Decoder decoder([&](const std::uint8_t* bgr, int width, int height, std::int64_t) {
        pictures.emplace_back(bgr, bgr + width * height * 3);
    });
    EXPECT_TRUE(decoder.initialize(160, 96));
    for (std::size_t i = 0; i < count; ++i) {
        decoder.feed(clip.units[i].bytes, 0);
    }
    return pictures;
}

class LivePipelineTest : public testing::Test
{
protected:
    void feed(const Clip& clip, std::size_t first, std::size_t count)
    {
        for (std::size_t i = first; i < first + count; ++i) {
            m_pipeline.feed(clip.unit(i), 0);
        }
    }

    void startLive(bool direct)
    {
        ASSERT_TRUE(m_pipeline.createCamera());
        m_pipeline.showIdle();
        m_pipeline.startStream({160, 96}, direct);
        (void)m_sink.take(); // the idle card's
    }

    void pass(std::chrono::milliseconds time)
    {
        m_now += time;
        m_pipeline.checkStall();
    }

    std::chrono::steady_clock::time_point m_now = std::chrono::steady_clock::now();
    RecordingSink m_sink;
    LivePipeline m_pipeline{m_sink, {.now = [this] { return m_now; }, .timersRun = false}};
    const Clip m_live{"live.h264", {160, 96}};
};

} // namespace

TEST_F(LivePipelineTest, FeedsTheIdleCardUntilAStreamStarts)
{
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::NotStarted);
    ASSERT_TRUE(m_pipeline.createCamera());
    m_pipeline.setPairAddress(u"192.168.1.42:8788"_s);
    m_pipeline.showIdle();
    ASSERT_TRUE(waitUntil([this] { return m_sink.hasPictures(); }));
    EXPECT_EQ(m_sink.take().front(), drawIdleCard({1280, 720}, u"192.168.1.42:8788"_s));
    m_pipeline.setPairAddress(u"10.0.0.1:1"_s);
    const auto redrawn = drawIdleCard({1280, 720}, u"10.0.0.1:1"_s);
    EXPECT_TRUE(waitUntil([&] {
        const auto sent = m_sink.take();
        return !sent.empty() && sent.back() == redrawn;
    }));

    m_pipeline.startStream({160, 96}, false);
    EXPECT_FALSE(m_pipeline.isFeedingCards());
    EXPECT_THAT(m_sink.sizes, ElementsAre(QSize(1280, 720), QSize(160, 96)));
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Live);

    m_pipeline.goIdle();
    EXPECT_TRUE(m_pipeline.isFeedingCards());
    m_pipeline.stop();
    EXPECT_FALSE(m_pipeline.isFeedingCards());
    EXPECT_FALSE(m_sink.isActive());
    m_pipeline.startStream({160, 96}, false);
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Stopped);
}

TEST_F(LivePipelineTest, DeliversThePicturesAsDecodedOnceAndInOrder)
{
    const auto expected = decode(m_live, 48);
    startLive(true);
    feed(m_live, 0, 20);
    EXPECT_EQ(m_sink.take(), std::vector(expected.begin(), expected.begin() + 20));

    m_pipeline.startStream({160, 96}, false); // and paced, from the next keyframe on
    for (std::size_t i = 0; i < 40; ++i) {
        feed(m_live, i, 1);
        EXPECT_FALSE(m_sink.hasPictures());
        m_pipeline.pacingTick();
        EXPECT_THAT(m_sink.take(), ElementsAre(expected[i]));
    }
    m_pipeline.pacingTick(); // nothing waits any more
    EXPECT_FALSE(m_sink.hasPictures());

    feed(m_live, 40, 8); // of a burst the oldest are dropped
    for (std::size_t i = 43; i < 48; ++i) {
        m_pipeline.pacingTick();
        EXPECT_THAT(m_sink.take(), ElementsAre(expected[i]));
    }
    EXPECT_EQ(m_pipeline.framesDecoded(), 68);
    EXPECT_EQ(m_pipeline.takeDecodeTime().count, 68);
}

TEST_F(LivePipelineTest, PausesTheCameraOnlyWhenTheOutputIsOff)
{
    startLive(true);
    int shown = 0;
    QObject::connect(&m_pipeline, &LivePipeline::frameReady, &m_pipeline, [&] { ++shown; });
    const qint64 sentBefore = m_pipeline.framesSent();
    m_pipeline.toggleOutput();
    feed(m_live, 0, 3);
    pass(400ms);
    pass(1501ms);
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Stalled);
    letEventsRunFor(4 * std::chrono::ceil<std::chrono::milliseconds>(CardSender::kPeriod));
    EXPECT_FALSE(m_sink.hasPictures()) << "no card either";
    m_pipeline.toggleOutput();
    EXPECT_TRUE(waitUntil([this] { return m_sink.hasPictures(); }));
    m_pipeline.toggleOutput();
    feed(m_live, 3, 1);
    (void)m_sink.take();
    const qint64 cards = m_pipeline.framesSent() - sentBefore;
    m_pipeline.toggleOutput();
    feed(m_live, 4, 2);
    EXPECT_THAT(m_sink.take(), SizeIs(2));
    EXPECT_EQ(shown, 6);
    EXPECT_EQ(m_pipeline.framesSent() - sentBefore - cards, 2);
}

TEST_F(LivePipelineTest, ShowsNothingThatWaitedBeforeASwitch)
{
    const Clip other("sizes.h264", {320, 240}, 0, 4);
    const struct
    {
        const char* to;
        std::function<void()> happen;
        QSize shown; // from then on; empty: nothing
    } cases[] = {{"a larger stream", [&] { m_pipeline.startStream({320, 240}, false); }, {}},
                 {"pictures of another size", [&] { feed(other, 0, 1); }, {320, 240}},
                 {"nobody", [&] { m_pipeline.goIdle(); }, {}}};
    QList<QSize> shown;
    QObject::connect(&m_pipeline, &LivePipeline::frameReady, &m_pipeline,
                     [&](const QImage& image) { shown += image.size(); });
    for (const auto& c : cases) {
        SCOPED_TRACE(c.to);
        m_now += 10s; // cameras are not made anew all the time
        startLive(false);
        feed(m_live, 0, 3);
        c.happen();
        shown.clear();
        for (int i = 0; i < 3; ++i) {
            m_pipeline.pacingTick();
        }
        EXPECT_EQ(shown, c.shown.isEmpty() ? QList<QSize>() : QList<QSize>{c.shown});
    }
}

TEST_F(LivePipelineTest, ShowsThePausedCardWhileThePhoneSendsNothing)
{
    startLive(false);
    pass(10min); // no stall before the first picture
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Live);
    feed(m_live, 0, 3);
    pass(400ms); // sees the progress
    pass(1500ms);
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Live);
    pass(1ms);
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Stalled);
    EXPECT_TRUE(m_pipeline.isLive());
    (void)m_sink.take();
    m_pipeline.pacingTick(); // what waited has been dropped
    ASSERT_TRUE(waitUntil([this] { return m_sink.hasPictures(); }));
    EXPECT_EQ(m_sink.take().front(), drawPausedCard({160, 96}));

    feed(m_live, 3, 1);
    EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Live);
    EXPECT_FALSE(m_pipeline.isFeedingCards());
}

TEST_F(LivePipelineTest, TakesOffPaddingAndFollowsEveryOtherSize)
{
    struct Case
    {
        QSize announced;
        QSize camera; // after pictures of 160 x 96
    };
    const Case cases[] = {
        {{160, 96}, {160, 96}}, {{158, 90}, {158, 90}},  {{145, 81}, {145, 81}},
        {{144, 96}, {160, 96}}, {{160, 80}, {160, 96}}, // 16 more is another size
        {{160, 97}, {160, 96}}, {{320, 200}, {160, 96}},
    };
    const Pixels whole = decode(m_live, 1).front();
    ASSERT_TRUE(m_pipeline.createCamera());
    for (const Case& c : cases) {
        m_now += 10s; // cameras are not made anew all the time
        m_pipeline.startStream(c.announced, true);
        (void)m_sink.take();
        feed(m_live, 0, 1);
        EXPECT_EQ(m_pipeline.cameraSize(), c.camera);
        EXPECT_EQ(m_sink.sizes.constLast(), c.camera);
        const auto sent = m_sink.take();
        ASSERT_THAT(sent, SizeIs(1));
        const auto row = static_cast<std::size_t>(c.camera.width()) * 3;
        for (std::size_t y = 0; y < static_cast<std::size_t>(c.camera.height()); ++y) {
            ASSERT_EQ(std::memcmp(&sent[0][y * row], &whole[y * 160 * 3], row), 0) << "row " << y;
        }
    }
}

TEST_F(LivePipelineTest, MakesFewCamerasOfSizesThatChangeAllTheTime)
{
    ASSERT_TRUE(m_pipeline.createCamera());
    for (int i = 0; i < 100; ++i) {
        m_now += 1ms;
        m_pipeline.startStream(i % 2 == 0 ? QSize(320, 200) : QSize(640, 480), true);
    }
    feed(m_live, 0, 1);
    EXPECT_LT(m_sink.sizes.size(), 8);
    EXPECT_EQ(m_pipeline.framesDecoded(), 1);
    m_now += 1s;
    feed(m_live, 1, 1);
    EXPECT_EQ(m_pipeline.cameraSize(), QSize(160, 96)) << "as soon as it may be";
}

TEST_F(LivePipelineTest, KeepsNoPictureWaitingForGoodAfterAPause)
{
    startLive(false);
    const auto playedLate = [this](int seconds) {
        std::size_t last = 0;
        for (int i = 0; i < seconds * 30; ++i) {
            feed(m_live, static_cast<std::size_t>(i) % 10, 1);
            m_pipeline.pacingTick();
            last = m_sink.take().size();
        }
        return last;
    };
    feed(m_live, 0, 3); // they came together, late
    EXPECT_EQ(playedLate(3), 1);
    (void)m_sink.take();
    m_pipeline.pacingTick();
    EXPECT_FALSE(m_sink.hasPictures()) << "a picture stood in the queue";
}

TEST_F(LivePipelineTest, GoesOnWithoutACameraUntilThereIsOne)
{
    m_sink.available = false;
    EXPECT_FALSE(m_pipeline.createCamera());
    m_pipeline.startStream({160, 96}, true);
    feed(m_live, 0, 5);
    EXPECT_EQ(m_pipeline.framesDecoded(), 5);
    m_sink.available = true;
    pass(400ms);
    (void)m_sink.take();
    feed(m_live, 5, 1);
    EXPECT_TRUE(m_sink.hasPictures());
}

TEST_F(LivePipelineTest, TakesTheSizeFromThePicturesWhenTheAnnouncedOneIsOfNoUse)
{
    ASSERT_TRUE(m_pipeline.createCamera());
    qint64 decoded = 0;
    for (const QSize size :
         {QSize(0, 0), QSize(-1, 96), QSize(65535, 65535), QSize(160, 1 << 30)}) {
        m_pipeline.showIdle();
        m_pipeline.startStream(size, true);
        EXPECT_EQ(m_pipeline.state(), LivePipeline::State::Live);
        feed(m_live, 0, 1);
        EXPECT_EQ(m_pipeline.framesDecoded(), ++decoded);
        EXPECT_EQ(m_pipeline.cameraSize(), QSize(160, 96));
    }
    EXPECT_THAT(m_sink.sizes, ElementsAre(QSize(1280, 720), QSize(160, 96)));
}

TEST(LiveStatistics, CountsPicturesPerSecondAndKeepsTheLastDecodeTime)
{
    LiveStatistics statistics;
    statistics.tick(500, 15, 30ms, 15);
    EXPECT_EQ(statistics.fps(), 30);
    EXPECT_EQ(statistics.decodeMs(), 2);
    statistics.tick(500, 15, 0ns, 0);
    EXPECT_EQ(statistics.fps(), 0);
    EXPECT_EQ(statistics.decodeMs(), 2);
    statistics.tick(0, 40, 0ns, 0);
    EXPECT_EQ(statistics.fps(), 0);
}

} // namespace pevrix
