#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace pevrix {

// Thins out log lines that a peer can cause as often as it likes: lets some through in each
// interval and counts the rest. Plain code for one thread.
//
//     if (const auto note = m_limiter.admit()) {
//         qCWarning(phoneLog, "...%s", note->c_str());
//     }
class LogLimiter
{
public:
    using Clock = std::chrono::steady_clock;

    // At most lines in an interval, which begins with the first of them.
    explicit LogLimiter(int lines = 20, Clock::duration interval = std::chrono::minutes(1),
                        std::function<Clock::time_point()> now = &Clock::now)
        : m_lines(lines)
        , m_interval(interval)
        , m_now(std::move(now))
    {}

    // None: leave the line out. Otherwise write it and put this at its end, which says how many
    // were left out before it and is empty when there were none.
    [[nodiscard]] std::optional<std::string> admit()
    {
        const Clock::time_point now = m_now();
        if (!m_start || now - *m_start >= m_interval) {
            m_start = now;
            m_written = 0;
        }
        if (m_written == m_lines) {
            ++m_leftOut;
            return std::nullopt;
        }
        ++m_written;
        const int leftOut = std::exchange(m_leftOut, 0);
        return leftOut == 0 ? std::string()
                            : " (" + std::to_string(leftOut) + " such lines left out before)";
    }

private:
    int m_lines;
    Clock::duration m_interval;
    std::function<Clock::time_point()> m_now;
    std::optional<Clock::time_point> m_start; // of the interval that runs
    int m_written = 0;                        // in it
    int m_leftOut = 0;                        // since the last line written
};

} // namespace pevrix
