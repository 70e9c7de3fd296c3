#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace pevrix {

/// The time table of a stream: frame n is due exactly n / fps seconds after frame 0, however late
/// the frames before it were, so the rate never drifts. Pure arithmetic on the caller's clock.
class FramePacer
{
public:
    using Time = std::chrono::nanoseconds; // on any monotonic clock

    /// How late a frame may be sent. A sender that is later than this gives frames up, as a camera
    /// does, in place of a long burst.
    static constexpr Time kMaxLate = std::chrono::milliseconds(500);

    explicit FramePacer(int fps)
        : m_fps(std::max(1, fps))
    {}

    [[nodiscard]] bool running() const { return m_running; }
    [[nodiscard]] std::int64_t nextFrame() const { return m_next; }

    /// When the next frame is due.
    [[nodiscard]] Time due() const { return m_start + offset(m_next, 1'000'000'000); }

    /// The time of `frame` on the stream's own clock, which begins with frame 0.
    [[nodiscard]] std::chrono::microseconds timestamp(std::int64_t frame) const
    {
        return std::chrono::microseconds(offset(frame, 1'000'000).count());
    }

    /// Frame 0 is due now.
    void begin(Time now)
    {
        m_start = now;
        m_next = 0;
        m_running = true;
    }

    /// Takes the next frame.
    std::int64_t take() { return m_next++; }

    /// Gives up the frames before the first one that is due at or after `now`, and says how many.
    std::int64_t skipTo(Time now)
    {
        const std::int64_t passed = ((now - m_start).count() * m_fps + 999'999'999) / 1'000'000'000;
        const std::int64_t skipped = std::max<std::int64_t>(0, passed - m_next);
        m_next += skipped;
        return skipped;
    }

    /// The same, but only when the next frame is later than kMaxLate.
    std::int64_t skipLate(Time now) { return now - due() > kMaxLate ? skipTo(now) : 0; }

private:
    [[nodiscard]] Time offset(std::int64_t frame, std::int64_t unitsPerSecond) const
    {
        return Time(frame / m_fps * unitsPerSecond + frame % m_fps * unitsPerSecond / m_fps);
    }

    int m_fps;
    Time m_start{};
    std::int64_t m_next = 0;
    bool m_running = false;
};

} // namespace pevrix
