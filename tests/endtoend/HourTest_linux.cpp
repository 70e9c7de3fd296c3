// An hour of phones that come, stall, switch and leave at random, in as long as the decoding takes:
// nothing may be left of it.
#include "camera/SoftcamSink.h"
#include "controller/LivePhones.h"
#include "controller/LivePipeline.h"
#include "tests/support/Clip.h"
#include "tools/doubles/ThisProcess.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <map>
#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

constexpr int kStepsPerSecond = 5; // also the most pictures that a phone sends
constexpr int kHour = 3600 * kStepsPerSecond;
constexpr int kPart = kHour / 6; // memory is looked at after each; two are the warm-up
constexpr QSize kSize(160, 96);

// Thirty times as fast as real time, so that a camera that is made anew costs a few milliseconds.
PacingTime fastTime()
{
    static constexpr int kFactor = 30;
    const auto start = std::chrono::steady_clock::now();
    const auto now = [start] {
        return start + (std::chrono::steady_clock::now() - start) * kFactor;
    };
    return {.now = now, .sleepUntil = [now](PacingTime::Clock::time_point time) {
                std::this_thread::sleep_for((time - now()) / kFactor);
            }};
}

class HourTest : public testing::Test, private IVideoSwitch
{
protected:
    struct Phone
    {
        const Clip* clip = nullptr;
        int stepsPerPicture = 1;
        std::size_t next = 0; // access unit
        bool stalled = false;
    };

    void SetUp() override
    {
        ASSERT_TRUE(m_pipeline.createCamera());
        m_pipeline.setPairAddress(u"192.168.1.42:8788"_s);
        m_pipeline.showIdle();
        QObject::connect(&m_pipeline, &LivePipeline::frameReady, &m_pipeline,
                         [this](const QImage& image) { m_shown = image; });
    }

    int between(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }
    bool onceIn(int seconds) { return between(1, seconds * kStepsPerSecond) == 1; }

    // IVideoSwitch
    void askForVideo(int id, bool) override { m_phones[id].next = 0; }
    void startStream(QSize size, bool direct) override { m_pipeline.startStream(size, direct); }
    void setFrameRate(int fps) override { m_pipeline.setFrameRate(fps); }
    void goIdle() override { m_pipeline.goIdle(); }

    void join()
    {
        m_phones[++m_lastId] = {.clip = &m_clips[static_cast<std::size_t>(between(0, 3))],
                                .stepsPerPicture = between(1, 2)};
        m_live.add({m_lastId, QString::number(m_lastId % 7), {}, {}, {}, {}, between(0, 1) == 1});
        announce(m_lastId);
    }

    void announce(int id)
    {
        Phone& phone = m_phones[id];
        phone.next = 0;
        m_live.setStream(id, phone.clip->size, kStepsPerSecond / phone.stepsPerPicture);
    }

    void leave(int id)
    {
        m_live.remove(id);
        m_phones.erase(id);
    }

    // What the phone in use does now; others send nothing.
    void send(int id)
    {
        Phone& phone = m_phones[id];
        if (onceIn(12)) {
            phone.stalled = !phone.stalled;
            if (between(0, 1) == 1) { // or it goes on where it was
                announce(id);
            }
        }
        if (phone.stalled || m_step % phone.stepsPerPicture != 0) {
            return;
        }
        if (between(0, 500) == 0) {
            m_pipeline.feed(QByteArrayView::fromArray("\0\0\1\x65 no slice"), 0);
        }
        m_pipeline.feed(phone.clip->unit(phone.next), 0);
        phone.next = (phone.next + 1) % phone.clip->units.size();
    }

    void click()
    {
        if (m_phones.size() > 1) {
            static_cast<void>(m_live.activate(m_phones.begin()->first));
        }
        if (between(0, 3) > 0) {
            m_pipeline.stopRecording();
        } else if (m_pipeline.isLive() && !m_pipeline.isRecording()) {
            EXPECT_TRUE(m_pipeline.startRecording(m_folder.filePath(u"a.mp4"_s)));
        }
    }

    void step()
    {
        ++m_step;
        m_now += std::chrono::nanoseconds(1s) / kStepsPerSecond;
        if (m_phones.size() < 3 && onceIn(20)) {
            join();
        }
        if (!m_phones.empty() && onceIn(25)) {
            leave((between(0, 1) == 1 ? m_phones.begin() : std::prev(m_phones.end()))->first);
        }
        if (!m_phones.empty()) {
            send(m_live.roster().activeId());
        }
        m_pipeline.pacingTick();
        if (m_step % (kStepsPerSecond * 2 / 5) == 0) {
            m_pipeline.checkStall();
        }
        if (onceIn(5)) {
            click();
        }
        ++m_steps[m_pipeline.state()];
    }

    // Everybody leaves; what the program holds then.
    void settle()
    {
        while (!m_phones.empty()) {
            leave(m_phones.begin()->first);
        }
        m_pipeline.stopRecording();
        m_pipeline.startStream(kSize, true);
        m_pipeline.feedParameterSets({}); // the decoder is made anew with what comes first
        m_pipeline.goIdle();
        m_shown = {};
    }

    std::mt19937 m_random{2024};
    const std::vector<Clip> m_clips{{"live.h264", kSize},
                                    {"sizes.h264", {320, 240}, 0, 4},
                                    {"sizes.h264", {176, 144}, 4, 4},
                                    {"sizes.h264", {144, 176}, 8, 4}};
    QTemporaryDir m_folder;
    std::chrono::steady_clock::time_point m_now = std::chrono::steady_clock::now();
    SoftcamSink m_sink{TESTCAM_NAME, fastTime()};
    LivePipeline m_pipeline{m_sink, {.now = [this] { return m_now; }, .timersRun = false}};
    LivePhones m_live{*this};
    std::map<int, Phone> m_phones;
    std::map<LivePipeline::State, int> m_steps; // spent in each state
    QImage m_shown;
    int m_step = 0;
    int m_lastId = 0;
};

} // namespace

TEST_F(HourTest, LeavesMemoryHandlesAndThreadsAsTheyWere)
{
    constexpr std::int64_t kTolerance = 256 * 1024; // a picture is at least 46 kB
    std::int64_t bytes = 0;
    int handles = 0;
    int threads = 0;
    while (m_step < kHour) {
        for (int i = 0; i < kPart; ++i) {
            step();
            ASSERT_EQ(m_pipeline.isLive(), !m_phones.empty());
            ASSERT_EQ(m_pipeline.isFeedingCards(), m_pipeline.state() != LivePipeline::State::Live);
            ASSERT_TRUE(m_sink.isActive());
        }
        settle();
        if (m_step <= 2 * kPart) {
            // How many pictures wait somewhere, and how large the last camera was, differs from
            // part to part; what grows goes beyond both.
            bytes = std::max(bytes, heapBytes());
            handles = openHandles();
            threads = runningThreads();
        }
        EXPECT_LE(heapBytes(), bytes + kTolerance) << "after step " << m_step;
        EXPECT_EQ(openHandles(), handles);
        EXPECT_EQ(runningThreads(), threads);
    }
    // The hour had something of everything.
    EXPECT_GT(m_lastId, 100);
    EXPECT_GT(m_pipeline.framesDecoded(), kHour / 3);
    for (const auto state :
         {LivePipeline::State::Idle, LivePipeline::State::Live, LivePipeline::State::Stalled}) {
        EXPECT_GT(m_steps[state], kHour / 100);
    }
}

} // namespace pevrix
