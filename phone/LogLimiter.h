#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <utility>

namespace pevrix {

// Thins out log lines that somebody else can cause as often as he likes: lets some through in each
// interval and counts the rest. Plain code for one thread; the times are of the caller's clock and
// never go back.
class LogLimiter
{
public:
    using Time = std::chrono::milliseconds;

    // At most lines in an interval, which begins with the first of them.
    explicit LogLimiter(int lines = 10, Time interval = std::chrono::minutes(1))
        : m_lines(lines)
        , m_interval(interval)
    {}

    // None: leave the line out. Otherwise write it, and say how many were left out before it.
    [[nodiscard]] std::optional<int> admit(Time now)
    {
        if (!m_start || now - *m_start >= m_interval) {
            m_start = now;
            m_written = 0;
        }
        if (m_written == m_lines) {
            ++m_leftOut;
            return std::nullopt;
        }
        ++m_written;
        return std::exchange(m_leftOut, 0);
    }

private:
    int m_lines;
    Time m_interval;
    std::optional<Time> m_start; // of the interval that runs
    int m_written = 0;           // in it
    int m_leftOut = 0;           // since the last line written
};

// What a line says about those before it that were left out, to be put at its end.
[[nodiscard]] inline std::string leftOutNote(int leftOut)
{
    return leftOut > 0 ? " (" + std::to_string(leftOut) + " such lines left out before)" : "";
}

} // namespace pevrix
