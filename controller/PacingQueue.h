#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace pevrix {

/// Pictures between decoding and delivery, oldest first. Bounded, because a queue is latency: the
/// oldest ones are dropped, never the newest. The pictures' memory is recycled while their size
/// stays the same.
class PacingQueue
{
public:
    using Picture = std::vector<std::uint8_t>;

    static constexpr std::size_t kMaxPictures = 5;

    /// Appends a copy.
    void push(std::span<const std::uint8_t> pixels)
    {
        m_pictures.push_back(takeSpare());
        m_pictures.back().assign(pixels.begin(), pixels.end());
        while (m_pictures.size() > kMaxPictures) {
            recycleOldest();
        }
    }

    [[nodiscard]] bool isEmpty() const { return m_pictures.empty(); }
    [[nodiscard]] std::size_t size() const { return m_pictures.size(); }

    /// The next one to deliver; there must be one. Valid until pop() or clear().
    [[nodiscard]] const Picture& front() const { return m_pictures.front(); }
    void pop() { recycleOldest(); }

    /// Also gives the memory back: the next pictures may be of another size.
    void clear()
    {
        m_pictures.clear();
        m_spare.clear();
    }

private:
    Picture takeSpare()
    {
        if (m_spare.empty()) {
            return {};
        }
        Picture picture = std::move(m_spare.back());
        m_spare.pop_back();
        return picture;
    }

    void recycleOldest()
    {
        m_spare.push_back(std::move(m_pictures.front()));
        m_pictures.pop_front();
    }

    std::deque<Picture> m_pictures;
    std::vector<Picture> m_spare;
};

} // namespace pevrix
