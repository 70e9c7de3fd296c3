#include "phone/LogLimiter.h"

#include <gtest/gtest.h>

namespace pevrix {
namespace {

using namespace std::chrono_literals;

TEST(LogLimiterTest, letsSomeLinesThroughAndTellsHowManyItLeftOut)
{
    LogLimiter limiter(2, 60s);
    EXPECT_EQ(limiter.admit(5s), 0);
    EXPECT_EQ(limiter.admit(50s), 0);
    EXPECT_EQ(limiter.admit(50s), std::nullopt);
    EXPECT_EQ(limiter.admit(64999ms), std::nullopt);
    EXPECT_EQ(limiter.admit(65s), 2);
    EXPECT_EQ(limiter.admit(70s), 0);
    EXPECT_EQ(limiter.admit(70s), std::nullopt);
    EXPECT_EQ(limiter.admit(24h), 1);
    EXPECT_EQ(leftOutNote(0), "");
    EXPECT_EQ(leftOutNote(7), " (7 such lines left out before)");
}

} // namespace
} // namespace pevrix
