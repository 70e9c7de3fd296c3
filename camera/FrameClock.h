#pragma once

#include "system/Pace.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace pevrix {

// The clock of a thread that sends at a fixed rate; tests drive it by hand.
struct PacingTime
{
    using Clock = std::chrono::steady_clock;

    std::function<Clock::time_point()> now = Clock::now;
    std::function<void(Clock::time_point)> sleepUntil = pevrix::sleepUntil;
};

// The deadlines of a fixed rate. They are absolute, so that the time that each cycle takes does not
// slow the rate down. A thread that was held up catches up on the missed cycles back to back. Only
// when it is more than a second late, as after the computer slept, the deadlines move: eight hours
// of sleep would otherwise be 860,000 pictures at once.
class FrameClock
{
public:
    using Clock = std::chrono::steady_clock;

    FrameClock(std::chrono::nanoseconds period, Clock::time_point start)
        : m_period(period)
        , m_deadline(start)
    {}

    // Whole microseconds, computed in single precision. `fps` must be greater than 0.
    [[nodiscard]] static std::chrono::microseconds periodOf(float fps)
    {
        return std::chrono::microseconds(static_cast<std::int64_t>(1'000'000.0F / fps));
    }

    // Ends a cycle: moves the deadline on by one period and returns it, for the cycle's thread to
    // sleep until then. Nothing when it has been reached already.
    [[nodiscard]] std::optional<Clock::time_point> advance(Clock::time_point now)
    {
        m_deadline += m_period;
        if (now - m_deadline > kLongestDelay) {
            m_deadline = now;
        }
        return m_deadline > now ? std::optional(m_deadline) : std::nullopt;
    }

private:
    static constexpr std::chrono::seconds kLongestDelay{1};

    std::chrono::nanoseconds m_period;
    Clock::time_point m_deadline;
};

} // namespace pevrix
