#include "softcam/PictureSchedule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace pevrix;
using namespace std::chrono_literals;

namespace {

constexpr auto kWhole = 10s;

struct Seen
{
    int pictures = 0;
    std::chrono::nanoseconds longestWait{}; // of a new picture
    std::chrono::nanoseconds lastWait{};
    std::chrono::nanoseconds longestGap{};
};

// A reader of 30 pictures a second, and new ones at the given times.
Seen watch(const std::vector<std::chrono::nanoseconds>& arrivals)
{
    PictureSchedule schedule(*cameraFormat(640, 480, 30));
    const PictureSchedule::Clock::time_point start{1h};
    Seen seen;
    auto last = start;
    auto arrival = start;
    auto next = arrivals.begin();
    bool waits = false;
    while (true) {
        const auto now = next == arrivals.end()
                             ? schedule.deadline()
                             : std::min(start + *next, std::max(schedule.deadline(), last));
        if (now - start >= kWhole) {
            return seen;
        }
        if (next != arrivals.end() && now == start + *next) {
            ++next;
            schedule.pictureCame();
            arrival = now;
            waits = true;
        }
        if (schedule.isDue(now)) {
            schedule.handedOn(now);
            ++seen.pictures;
            seen.longestGap = std::max<std::chrono::nanoseconds>(seen.longestGap, now - last);
            if (std::exchange(waits, false)) {
                seen.lastWait = now - arrival;
                seen.longestWait = std::max(seen.longestWait, seen.lastWait);
            }
            last = now;
        }
    }
}

std::vector<std::chrono::nanoseconds> atRate(double rate, std::chrono::nanoseconds jitter = 0ns)
{
    std::vector<std::chrono::nanoseconds> times;
    for (int i = 0; i < kWhole.count() * rate; ++i) {
        const auto even = std::chrono::nanoseconds(std::llround(i * 1e9 / rate));
        times.push_back(even + (i * 7919 % 100) * jitter / 100);
    }
    return times;
}

} // namespace

TEST(PictureSchedule, GivesAReaderItsRateWhateverTheSendersIs)
{
    for (const double rate :
         {0.1, 5.0, 15.0, 24.0, 25.0, 29.97, 30.0, 30.3, 33.0, 50.0, 60.0, 240.0}) {
        const Seen seen = watch(atRate(rate, 2ms));
        EXPECT_NEAR(seen.pictures, 300, 2) << rate;
        EXPECT_LT(seen.longestGap, 70ms) << rate;
        EXPECT_LT(seen.longestWait, 35ms) << rate;
    }
}

TEST(PictureSchedule, HoldsUpNoPictureOfASenderOfTheReadersRate)
{
    for (const auto jitter : {0ms, 5ms, 15ms}) {
        EXPECT_EQ(watch(atRate(30, jitter)).longestWait, 0ms) << jitter.count();
    }
}

TEST(PictureSchedule, ForgetsAPictureThatCameLateAndASenderThatComesEarlierFromThenOn)
{
    auto late = atRate(30, 2ms);
    late[30] += 25ms;
    auto earlier = atRate(30, 2ms);
    std::for_each(earlier.begin() + 30, earlier.end(), [](auto& time) { time -= 25ms; });
    for (const auto& arrivals : {late, earlier}) {
        const Seen seen = watch(arrivals);
        EXPECT_GT(seen.longestWait, 5ms);
        EXPECT_EQ(seen.lastWait, 0ms);
        EXPECT_NEAR(seen.pictures, 300, 2);
    }
}

TEST(PictureSchedule, MakesUpNoMissedPictures)
{
    PictureSchedule schedule(*cameraFormat(640, 480, 30));
    PictureSchedule::Clock::time_point now{1h};
    schedule.handedOn(now);
    now += 1h;
    int pictures = 0;
    for (; schedule.isDue(now); ++pictures) {
        schedule.handedOn(now);
    }
    EXPECT_EQ(pictures, 1);
}
