#pragma once

#include "picture/Picture.h"

#include <cstddef>
#include <deque>
#include <utility>

namespace pevrix {

// Pictures between decoding and delivery, oldest first. Bounded, because a queue is latency: the
// oldest ones are dropped, never the newest.
class PacingQueue
{
public:
    static constexpr std::size_t kMaxPictures = 5;

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
        return picture;
    }

    void clear() { m_pictures.clear(); }

private:
    std::deque<SharedPicture> m_pictures;
};

} // namespace pevrix
