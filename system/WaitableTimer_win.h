#pragma once

#include "system/Handle_win.h"

#include <algorithm>
#include <chrono>
#include <ratio>

namespace pevrix {

// A timer to wait for, by the system's fine clock where there is one (Windows 10 of 2018 and
// later). All else that sleeps does so in steps of 16 ms, which is half a picture.
class WaitableTimer
{
public:
    using Clock = std::chrono::steady_clock;

    WaitableTimer()
        : m_timer(CreateWaitableTimerExW(nullptr, nullptr, CREATE_WAITABLE_TIMER_HIGH_RESOLUTION,
                                         TIMER_ALL_ACCESS))
    {
        if (m_timer == nullptr) {
            m_timer.reset(CreateWaitableTimerW(nullptr, FALSE, nullptr));
        }
    }

    // Null when the system has none left.
    [[nodiscard]] HANDLE handle() const { return m_timer.get(); }

    // Signals it once at this time, at once when that has passed, and no more at an earlier one.
    bool set(Clock::time_point time)
    {
        using HundredNanoseconds = std::chrono::duration<LONGLONG, std::ratio<1, 10'000'000>>;
        const auto left = std::chrono::ceil<HundredNanoseconds>(time - Clock::now());
        LARGE_INTEGER due{};
        due.QuadPart = -std::max<LONGLONG>(left.count(), 1); // negative: from now
        return SetWaitableTimer(m_timer.get(), &due, 0, nullptr, nullptr, FALSE) != FALSE;
    }

private:
    UniqueHandle m_timer;
};

} // namespace pevrix
