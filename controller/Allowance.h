#pragma once

#include <algorithm>
#include <chrono>

namespace pevrix {

// How often something dear may happen: a few times at once, then once per interval. Plain logic
// with the caller's clock.
class Allowance
{
public:
    using Point = std::chrono::steady_clock::time_point;

    constexpr Allowance(int atOnce, std::chrono::milliseconds interval)
        : m_slack((atOnce - 1) * interval)
        , m_interval(interval)
    {}

    // Whether it may happen now; then it counts as having happened.
    [[nodiscard]] bool take(Point now)
    {
        const Point due = std::max(m_due, now);
        if (due - now > m_slack) {
            return false;
        }
        m_due = due + m_interval;
        return true;
    }

private:
    std::chrono::milliseconds m_slack;
    std::chrono::milliseconds m_interval;
    Point m_due; // when the next one were due at one per interval
};

} // namespace pevrix
