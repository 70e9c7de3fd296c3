#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <thread>

namespace pevrix {

// What a thread that sends at a fixed rate needs of time; tests drive it by hand.
struct PacingTime
{
    using Point = std::chrono::steady_clock::time_point;

    std::function<Point()> now = [] {
        return std::chrono::steady_clock::now();
    };
    std::function<void(Point)> sleepUntil = [](Point time) {
        std::this_thread::sleep_until(time);
    };
};

// The deadlines of a fixed rate. They are absolute, so that the rate does not drift by what each
// cycle costs. A thread that was held up makes up for the missed ones back to back; only when it is
// more than a second late, as after the computer slept, they move: eight hours would be 860,000
// pictures at once.
class FrameClock
{
public:
    FrameClock(std::chrono::nanoseconds period, PacingTime::Point start)
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
    [[nodiscard]] std::optional<PacingTime::Point> advance(PacingTime::Point now)
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
    PacingTime::Point m_deadline;
};

} // namespace pevrix
