#pragma once

#include <chrono>
#include <cstdint>

namespace pevrix {

// Tells when live video has stalled, from the number of its pictures at regular checks. Plain logic
// with the caller's clock.
class StallDetector
{
public:
    using Clock = std::chrono::steady_clock;

    // Without a new picture for longer than this, live video counts as stalled.
    static constexpr std::chrono::milliseconds kLimit{1500};
    static constexpr std::chrono::milliseconds kCheckInterval{400};

    enum class Change
    {
        None,
        Stalled,
        Resumed
    };

    // A stream begins: it is not stalled before its first picture.
    void streamStarts(Clock::time_point now, std::int64_t pictures)
    {
        m_lastProgress = now;
        m_picturesAtStart = m_picturesSeen = pictures;
        m_stalled = false;
    }

    // To be called every kCheckInterval, with the number of pictures so far.
    [[nodiscard]] Change check(Clock::time_point now, std::int64_t pictures)
    {
        if (pictures != m_picturesSeen) {
            m_picturesSeen = pictures;
            m_lastProgress = now;
            return resume();
        }
        const bool stalls =
            !m_stalled && pictures != m_picturesAtStart && now - m_lastProgress > kLimit;
        m_stalled = m_stalled || stalls;
        return stalls ? Change::Stalled : Change::None;
    }

    // A picture has come: a stall ends at once, without waiting for the next check.
    [[nodiscard]] Change pictureCame() { return resume(); }

private:
    Change resume()
    {
        const Change change = m_stalled ? Change::Resumed : Change::None;
        m_stalled = false;
        return change;
    }

    Clock::time_point m_lastProgress;
    std::int64_t m_picturesSeen = 0;
    std::int64_t m_picturesAtStart = 0;
    bool m_stalled = false;
};

} // namespace pevrix
