#pragma once

#include "softcam/PictureFormat.h"

#include <algorithm>
#include <chrono>

namespace pevrix {

// When a reader gets its pictures: at the rate that it has agreed on, whatever the sender's rate
// is. Plain logic with the caller's clock; used by one thread at a time.
//
// Its ticks are an interval apart, and each hands on one picture. A new picture is handed on at
// once when that is less than half an interval before the tick, else it waits for that moment; of
// several that wait the newest is taken. Without a new picture the last one is handed on again half
// an interval after the tick. So a sender of the reader's rate is never held up, and its jitter
// changes nothing.
//
// When a picture comes too late, the last one is handed on in its place, and all later pictures
// would have to wait for their ticks. To make up for it, the ticks then come a little earlier, by
// one interval in all for each late picture.
class PictureSchedule
{
public:
    using Clock = std::chrono::steady_clock;

    explicit PictureSchedule(const CameraFormat& reader)
        : m_interval(reader.interval())
    {}

    // A new picture is there.
    void pictureCame() { m_waits = true; }

    // When to hand on the next picture: the newest one there is by then.
    [[nodiscard]] Clock::time_point deadline() const
    {
        return m_waits ? m_tick - m_interval / 2 : m_tick + m_interval / 2;
    }
    [[nodiscard]] bool isDue(Clock::time_point now) const { return now >= deadline(); }

    // A picture was handed on. After a hold-up of two intervals or more the ticks move, so that
    // missed ones are not made up.
    void handedOn(Clock::time_point now)
    {
        m_behind = m_waits ? m_behind : m_interval;
        const bool waited = m_waits && now < m_tick - m_interval * 3 / 8;
        const auto most = std::max(std::min(m_behind, m_interval / 16), m_interval / 256);
        const auto earlier = waited ? most : m_interval.zero();
        m_behind -= std::min(m_behind, earlier);
        m_waits = false;
        m_tick = now - m_tick > 2 * m_interval ? now + m_interval : m_tick + m_interval - earlier;
    }

private:
    std::chrono::nanoseconds m_interval;
    Clock::time_point m_tick; // long ago at first: the first picture is due at once
    bool m_waits = false;
    std::chrono::nanoseconds m_behind{}; // what the ticks may make up for
};

} // namespace pevrix
