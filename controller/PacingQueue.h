#pragma once

#include "picture/Picture.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <utility>

namespace pevrix {

// Pictures between decoding and delivery, oldest first. Bounded, because a queue is latency: the
// oldest ones are dropped, never the newest. Pictures that wait without need go as well: after one
// slow decode the queue would stand fuller for good, since as many come as are taken.
class PacingQueue
{
public:
    static constexpr std::size_t kMaxPictures = 5;

    // Two seconds of the usual 30 pictures a second: what was never used to bridge a gap within
    // that time is not needed.
    static constexpr int kPicturesLookedAt = 60;

    void push(SharedPicture picture)
    {
        m_pictures.push_back(std::move(picture));
        while (m_pictures.size() > kMaxPictures) {
            m_pictures.pop_front();
        }
    }

    [[nodiscard]] bool isEmpty() const { return m_pictures.empty(); }

    // The next one to deliver; there must be one.
    [[nodiscard]] SharedPicture pop()
    {
        SharedPicture picture = std::move(m_pictures.front());
        m_pictures.pop_front();
        m_leastWaiting = std::min(m_leastWaiting, m_pictures.size());
        if (++m_taken == kPicturesLookedAt) {
            const auto spare = static_cast<std::ptrdiff_t>(m_leastWaiting);
            m_pictures.erase(m_pictures.begin(), m_pictures.begin() + spare);
            lookAnew();
        }
        return picture;
    }

    void clear()
    {
        m_pictures.clear();
        lookAnew();
    }

private:
    void lookAnew()
    {
        m_taken = 0;
        m_leastWaiting = kMaxPictures;
    }

    std::deque<SharedPicture> m_pictures;
    int m_taken = 0;                           // since the last look
    std::size_t m_leastWaiting = kMaxPictures; // behind a picture taken since then
};

} // namespace pevrix
