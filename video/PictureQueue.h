#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

namespace pevrix {

// Passes pictures from one thread to a slower one, and their memory back. Bounded: when `limit`
// pictures wait, the oldest is dropped and counted, because the thread of the live video must never
// wait. `Picture` owns its memory, and a default-constructed one has none: once `limit` + 2 of them
// exist, nothing more is allocated.
template <typename Picture>
class PictureQueue
{
public:
    explicit PictureQueue(std::size_t limit)
        : m_limit(std::max<std::size_t>(limit, 1))
    {
        m_waiting.reserve(m_limit);
        m_free.reserve(m_limit + 2);
    }

    // For the filling thread: a picture to fill and push, or to drop when it cannot be filled.
    [[nodiscard]] Picture take()
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.size() == m_limit) {
            ++m_dropped;
            Picture oldest = std::move(m_waiting.front());
            m_waiting.erase(m_waiting.begin());
            return oldest;
        }
        if (m_free.empty()) {
            return {};
        }
        Picture picture = std::move(m_free.back());
        m_free.pop_back();
        return picture;
    }

    // Only what take() has given.
    void push(Picture picture)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_waiting.push_back(std::move(picture));
        }
        m_changed.notify_one();
    }

    // For the other thread: gives back the picture that it has used, if any, and waits for the
    // next. False when the queue was closed and is empty.
    [[nodiscard]] bool exchange(Picture& picture)
    {
        std::unique_lock lock(m_mutex);
        if (picture) {
            m_free.push_back(std::move(picture));
        }
        m_changed.wait(lock, [this] { return m_closed || !m_waiting.empty(); });
        if (m_waiting.empty()) {
            return false;
        }
        picture = std::move(m_waiting.front());
        m_waiting.erase(m_waiting.begin());
        return true;
    }

    // No picture is pushed from now on.
    void close()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_closed = true;
        }
        m_changed.notify_one();
    }

    [[nodiscard]] std::uint64_t dropped() const
    {
        const std::lock_guard lock(m_mutex);
        return m_dropped;
    }

private:
    const std::size_t m_limit;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Picture> m_waiting; // the oldest first
    std::vector<Picture> m_free;
    std::uint64_t m_dropped = 0;
    bool m_closed = false;
};

} // namespace pevrix
