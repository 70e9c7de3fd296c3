#pragma once

#include "camera/FrameClock.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace pevrix {

// A thread that does the same work once per period, by absolute deadlines (see FrameClock), until
// it is stopped. Work that runs out of memory is left out until the next period. start(), stop()
// and destruction belong to one thread at a time.
class PacedThread
{
public:
    explicit PacedThread(PacingTime time = {})
        : m_time(std::move(time))
    {}
    ~PacedThread() { stop(); }
    PacedThread(const PacedThread&) = delete;
    PacedThread& operator=(const PacedThread&) = delete;

    // Does the work for the first time at once. False when the system has no thread left. The
    // thread must not be running.
    [[nodiscard]] bool start(std::chrono::nanoseconds period, std::function<void()> work)
    {
        m_running = true;
        try {
            m_thread = std::thread(&PacedThread::run, this, period, std::move(work));
        } catch (const std::system_error&) {
            m_running = false;
        }
        return m_running;
    }

    // Returns once the work has ended for good.
    void stop()
    {
        m_running = false;
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }

    [[nodiscard]] bool isRunning() const { return m_running; }

private:
    void run(std::chrono::nanoseconds period, const std::function<void()>& work)
    {
        FrameClock clock(period, m_time.now());
        while (m_running) {
            try {
                work();
            } catch (const std::bad_alloc&) { // there may be some the next time
            }
            if (const auto deadline = clock.advance(m_time.now())) {
                m_time.sleepUntil(*deadline);
            }
        }
    }

    const PacingTime m_time;
    std::atomic<bool> m_running = false;
    std::thread m_thread;
};

} // namespace pevrix
