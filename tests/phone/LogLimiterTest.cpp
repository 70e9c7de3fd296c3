#include "phone/LogLimiter.h"

#include <gtest/gtest.h>

namespace pevrix {
namespace {

using namespace std::chrono_literals;

TEST(LogLimiter, LetsSomeLinesThroughAndTellsHowManyItLeftOut)
{
    LogLimiter::Clock::time_point now;
    LogLimiter limiter(2, 60s, [&] { return now; });
    const auto at = [&](auto seconds) {
        now = LogLimiter::Clock::time_point(seconds);
        return limiter.admit().value_or("left out");
    };
    EXPECT_EQ(at(5s), "");
    EXPECT_EQ(at(50s), "");
    EXPECT_EQ(at(50s), "left out");
    EXPECT_EQ(at(64999ms), "left out");
    EXPECT_EQ(at(65s), " (2 such lines left out before)");
    EXPECT_EQ(at(70s), "");
}

} // namespace
} // namespace pevrix
