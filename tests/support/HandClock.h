#pragma once

#include "camera/FrameClock.h"

#include <condition_variable>
#include <mutex>

namespace pevrix {

// Time for one pacing thread that stands still until the test lets it pass: a sleeping thread wakes
// once the test has allowed the time that it sleeps for.
class HandClock
{
public:
    using Clock = PacingTime::Clock;

    [[nodiscard]] PacingTime time()
    {
        return {.now = [this] { return now(); },
                .sleepUntil =
                    [this](Clock::time_point wanted) {
                        sleepUntil(wanted);
                    }};
    }

    [[nodiscard]] Clock::time_point now() const
    {
        const std::lock_guard lock(m_mutex);
        return m_now;
    }

    // Time that the pacing thread itself spends, in place of sleeping.
    void spend(std::chrono::nanoseconds duration)
    {
        const std::lock_guard lock(m_mutex);
        m_now += duration;
    }

    // Lets time pass up to and including `limit` from the beginning; returns when the thread sleeps
    // for a later one. False when that does not happen.
    [[nodiscard]] bool runUntil(Clock::duration limit)
    {
        std::unique_lock lock(m_mutex);
        m_limit = Clock::time_point(limit);
        m_changed.notify_all();
        return m_changed.wait_for(lock, std::chrono::minutes(1),
                                  [this] { return m_wanted > m_limit; });
    }

    // Back to the beginning; nobody may be asleep.
    void reset()
    {
        const std::lock_guard lock(m_mutex);
        m_now = m_limit = m_wanted = {};
    }

    // From now on nobody sleeps.
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_limit = Clock::time_point::max();
        m_changed.notify_all();
    }

    [[nodiscard]] std::chrono::nanoseconds lastSleep() const
    {
        const std::lock_guard lock(m_mutex);
        return m_lastSleep;
    }

private:
    void sleepUntil(Clock::time_point wanted)
    {
        std::unique_lock lock(m_mutex);
        m_lastSleep = wanted - m_now;
        m_wanted = wanted;
        m_changed.notify_all();
        m_changed.wait(lock, [this, wanted] { return wanted <= m_limit; });
        m_now = wanted;
    }

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    Clock::time_point m_now{};
    Clock::time_point m_limit{};
    Clock::time_point m_wanted{};
    std::chrono::nanoseconds m_lastSleep{};
};

} // namespace pevrix
