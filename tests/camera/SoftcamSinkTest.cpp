// The sink with a real camera library, loaded from where the program would load it. Pacing is
// checked in hand-driven time, so that it is exact on a busy machine too.
#include "camera/SoftcamSink.h"

#include "tests/support/HandClock.h"
#include "tools/doubles/Testcam.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace pevrix {
namespace {

using namespace std::chrono_literals;

constexpr int kWidth = 16;
constexpr int kHeight = 9;
constexpr auto kPeriod = 10ms;
constexpr float kFps = 100;

using Pixels = std::vector<std::uint8_t>;

Pixels pictureOf(std::uint8_t value, int width = kWidth, int height = kHeight)
{
    return Pixels(static_cast<std::size_t>(width * height * 3), value);
}

// Keeps a camera library loaded and gives access to its state.
struct Testcam
{
    explicit Testcam(const char* name)
        : library(loadCameraLibrary(name))
    {
        if (!library) {
            throw std::runtime_error(std::string("cannot load ") + name);
        }
        const auto entry = cameraEntryPoint(library, "testcamState");
        state = reinterpret_cast<TestcamStateFunction>(entry)();
    }
    ~Testcam() { state->onSend = nullptr; }

    CameraLibrary library;
    TestcamState* state = nullptr;
};

struct Sent
{
    std::chrono::nanoseconds time{}; // since the clock's beginning
    int value = 0;                   // of every byte, -1 if they differ

    bool operator==(const Sent&) const = default;
};

class SoftcamSinkTest : public testing::Test
{
protected:
    void SetUp() override
    {
        camera.state->onSend = [this](const std::uint8_t* pixels) {
            const auto size = static_cast<std::ptrdiff_t>(bytes);
            const bool even = std::all_of(pixels, pixels + size,
                                          [&](std::uint8_t byte) { return byte == *pixels; });
            sent.push_back({clock.now().time_since_epoch(), even ? *pixels : -1});
            if (afterSend) {
                afterSend();
            }
        };
    }

    void TearDown() override
    {
        clock.open();
        sink.stop();
        EXPECT_EQ(camera.state->misuses, 0);
        EXPECT_EQ(camera.state->created, camera.state->deleted);
    }

    // The first cycle, which finds no picture, is over when this returns.
    void start(int width = kWidth, int height = kHeight, float fps = kFps)
    {
        bytes = pictureOf(0, width, height).size();
        ASSERT_TRUE(sink.start(width, height, fps));
        ASSERT_TRUE(clock.runUntil({}));
    }

    // Read by the test while the sender sleeps.
    std::vector<Sent> sent;
    std::function<void()> afterSend;
    std::size_t bytes = 0;

    Testcam camera{TESTCAM_NAME};
    HandClock clock;
    SoftcamSink sink{TESTCAM_NAME, clock.time()};
};

TEST_F(SoftcamSinkTest, SendsTheNewestPictureOncePerPeriodAndNothingBeforeTheFirst)
{
    start();
    ASSERT_TRUE(clock.runUntil(2 * kPeriod));
    EXPECT_TRUE(sent.empty());

    sink.sendFrame(pictureOf(7).data());
    ASSERT_TRUE(clock.runUntil(4 * kPeriod));
    sink.sendFrame(pictureOf(8).data());
    sink.sendFrame(pictureOf(9).data());
    ASSERT_TRUE(clock.runUntil(6 * kPeriod));

    EXPECT_EQ(sent, (std::vector<Sent>{
                        {3 * kPeriod, 7}, {4 * kPeriod, 7}, {5 * kPeriod, 9}, {6 * kPeriod, 9}}));
}

TEST_F(SoftcamSinkTest, MakesUpForMissedPeriodsBackToBack)
{
    afterSend = [this] {
        clock.spend(sent.size() == 2 ? 3 * kPeriod : 0ms);
    };
    start();
    sink.sendFrame(pictureOf(1).data());
    ASSERT_TRUE(clock.runUntil(7 * kPeriod));
    std::vector<int> periods;
    for (const Sent& each : sent) {
        periods.push_back(static_cast<int>(each.time / kPeriod));
    }
    EXPECT_EQ(periods, (std::vector{1, 2, 5, 5, 5, 6, 7}));
}

TEST(FrameClock, MakesUpForLessThanASecondButNotForTheSleepOfTheComputer)
{
    for (const auto& [late, madeUp] :
         {std::pair<std::chrono::milliseconds, int>{900ms, 27}, {8h, 0}}) {
        FrameClock clock(33'333us, FrameClock::Clock::time_point{});
        const FrameClock::Clock::time_point now{late};
        int atOnce = 0;
        while (!clock.advance(now)) {
            ++atOnce;
        }
        EXPECT_NEAR(atOnce, madeUp, 1);
    }
}

TEST_F(SoftcamSinkTest, CreatesTheCameraWithTheRateAsGivenAndPacesByASensibleOne)
{
    const struct
    {
        float fps;
        std::chrono::microseconds period;
    } cases[] = {{0, 33333us}, {1, 33333us}, {NAN, 33333us}, {1.5, 666666us}, {120, 8333us}};
    for (const auto& [fps, period] : cases) {
        SCOPED_TRACE(fps);
        HandClock time;
        SoftcamSink paced(TESTCAM_NAME, time.time());
        ASSERT_TRUE(paced.start(1280, 720, fps));
        EXPECT_TRUE(time.runUntil({}));
        EXPECT_EQ(time.lastSleep(), period);
        EXPECT_EQ(std::isnan(fps), std::isnan(camera.state->fps));
        EXPECT_TRUE(std::isnan(fps) || camera.state->fps == fps);
        time.open();
    }
}

TEST_F(SoftcamSinkTest, KeepsTheFirstSizeUntilStopped)
{
    start();
    EXPECT_TRUE(sink.start(2 * kWidth, kHeight, kFps));
    EXPECT_EQ(camera.state->created, 1);
    EXPECT_EQ(camera.state->width, kWidth);

    sink.sendFrame(pictureOf(3).data());
    ASSERT_TRUE(clock.runUntil(kPeriod));
    clock.open();
    sink.stop();
    EXPECT_FALSE(sink.isActive());
    sink.sendFrame(pictureOf(4).data());

    sent.clear();
    clock.reset();
    start(2 * kWidth, kHeight);
    EXPECT_EQ(camera.state->width, 2 * kWidth);
    ASSERT_TRUE(clock.runUntil(kPeriod));
    EXPECT_TRUE(sent.empty()) << "the new camera's mailbox begins empty";
    sink.sendFrame(pictureOf(5, 2 * kWidth).data());
    ASSERT_TRUE(clock.runUntil(2 * kPeriod));
    EXPECT_EQ(sent, (std::vector<Sent>{{2 * kPeriod, 5}}));
}

TEST_F(SoftcamSinkTest, StopsFromAnyState)
{
    sink.stop();
    EXPECT_EQ(clock.lastSleep(), 0ms) << "without a camera there is nothing to wait for";
    {
        SoftcamSink running(TESTCAM_NAME, clock.time());
        ASSERT_TRUE(running.start(kWidth, kHeight, kFps));
        clock.open();
    }
    EXPECT_EQ(camera.state->deleted, 1);
    EXPECT_EQ(clock.lastSleep(), 100ms);
}

TEST_F(SoftcamSinkTest, StartsOnceTheLibraryHasACameraToGiveAndTellsWhetherAProgramReadsIt)
{
    camera.state->appConnected = true;
    camera.state->createFails = true;
    EXPECT_FALSE(sink.start(kWidth, kHeight, kFps));
    EXPECT_FALSE(sink.isActive());
    EXPECT_FALSE(sink.isAppConnected());
    camera.state->createFails = false;
    start();
    EXPECT_TRUE(sink.isActive());
    EXPECT_TRUE(sink.isAppConnected());
    camera.state->appConnected = false;
    EXPECT_FALSE(sink.isAppConnected());
}

TEST_F(SoftcamSinkTest, RefusesSizesThatNoPictureHas)
{
    constexpr int kMax = std::numeric_limits<int>::max();
    for (const auto& [width, height] : {std::pair{0, 9}, {16, 0}, {-16, -9}, {kMax, kMax}}) {
        EXPECT_FALSE(sink.start(width, height, kFps)) << width << " x " << height;
    }
    EXPECT_EQ(camera.state->created, 0);
    start(4096, 4096);
}

TEST(SoftcamSinkLibrary, NeedsEveryEntryPointButOne)
{
    SoftcamSink missing("no-such-library");
    EXPECT_FALSE(missing.start(kWidth, kHeight, kFps));

    const Testcam mute(TESTCAM_WITHOUT_SEND_NAME);
    SoftcamSink muteSink(TESTCAM_WITHOUT_SEND_NAME);
    EXPECT_FALSE(muteSink.start(kWidth, kHeight, kFps));
    EXPECT_FALSE(muteSink.start(kWidth, kHeight, kFps)) << "nothing is left of the first attempt";
    EXPECT_EQ(mute.state->created, 0);

    const Testcam silent(TESTCAM_WITHOUT_CONNECTED_NAME);
    silent.state->appConnected = true;
    SoftcamSink silentSink(TESTCAM_WITHOUT_CONNECTED_NAME);
    EXPECT_TRUE(silentSink.start(kWidth, kHeight, kFps));
    EXPECT_FALSE(silentSink.isAppConnected());
}

// The process's own search path is fixed when it starts, so the sink runs in a new one.
[[noreturn]] void tellWhichLibraryIsUsed(const char* name)
{
    SoftcamSink sink(name);
    const bool started = sink.start(kWidth, kHeight, kFps);
    const Testcam used(name);
    if (started && used.state->created == 1) {
        std::cerr << "camera of " << used.state->origin;
    }
    std::exit(0); // NOLINT: a child process of one thread
}

TEST(SoftcamSinkLibraryDeathTest, PrefersTheOneBesideTheExecutableToTheSystems)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const char* before = std::getenv(TESTCAM_SEARCH_VARIABLE);
    static std::string searchPath = TESTCAM_SEARCH_VARIABLE "=" TESTCAM_ELSEWHERE;
    if (before != nullptr) {
        const bool windows = std::filesystem::path::preferred_separator == L'\\';
        searchPath += (windows ? ';' : ':') + std::string(before);
    }
    ASSERT_EQ(putenv(searchPath.data()), 0);
    const auto success = testing::ExitedWithCode(0);
    EXPECT_EXIT(tellWhichLibraryIsUsed(TESTCAM_NAME), success, "camera of beside");
    EXPECT_EXIT(tellWhichLibraryIsUsed(TESTCAM_ELSEWHERE_NAME), success, "camera of elsewhere");
}

// From here on with the real clock.

TEST(SoftcamSinkThreads, ALibraryThatIsSlowToTakeAPictureHoldsUpNobodyElse)
{
    Testcam camera(TESTCAM_NAME);
    std::promise<void> taken;
    std::promise<void> mayGoOn;
    std::once_flag first;
    camera.state->onSend = [&](const std::uint8_t*) {
        std::call_once(first, [&] {
            taken.set_value();
            mayGoOn.get_future().wait();
        });
    };
    {
        SoftcamSink sink(TESTCAM_NAME);
        ASSERT_TRUE(sink.start(kWidth, kHeight, kFps));
        sink.sendFrame(pictureOf(1).data());
        taken.get_future().wait();
        sink.sendFrame(pictureOf(2).data());
        EXPECT_FALSE(sink.isAppConnected());
        mayGoOn.set_value();
    }
    EXPECT_EQ(camera.state->misuses, 0) << "the camera outlives the call that uses it";
}

TEST(SoftcamSinkThreads, PicturesFromSeveralThreadsStayWholeWhileTheCameraComesAndGoes)
{
    Testcam camera(TESTCAM_NAME);
    const Pixels pictures[] = {pictureOf(1), pictureOf(2), pictureOf(3)};
    std::atomic<int> torn = 0;
    camera.state->onSend = [&](const std::uint8_t* pixels) {
        if (std::none_of(std::begin(pictures), std::end(pictures), [&](const Pixels& whole) {
                return std::equal(whole.begin(), whole.end(), pixels);
            })) {
            ++torn;
        }
    };
    {
        SoftcamSink sink(TESTCAM_NAME);
        std::atomic<bool> over = false;
        std::vector<std::jthread> threads;
        for (const Pixels& picture : pictures) {
            threads.emplace_back([&sink, &over, &picture] {
                while (!over) {
                    sink.sendFrame(picture.data());
                    static_cast<void>(sink.isAppConnected());
                }
            });
        }
        for (int life = 1; life <= 3; ++life) {
            const bool started = sink.start(kWidth, kHeight, 1000);
            EXPECT_TRUE(started);
            while (started && camera.state->sent < life * 20) {
                std::this_thread::yield();
            }
            sink.stop();
        }
        over = true;
    }
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(camera.state->misuses, 0);
}

} // namespace
} // namespace pevrix
