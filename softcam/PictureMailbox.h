#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <mutex>
#include <utility>

namespace pevrix {

// Hands the newest picture from one thread to another. Of three buffers each side owns one, and the
// third changes hands: neither side ever waits while the other copies or reads. Memory that is
// never written is never used.
class PictureMailbox
{
public:
    explicit PictureMailbox(std::size_t bytes)
        : m_bytes(bytes)
        , m_written(std::make_unique_for_overwrite<std::uint8_t[]>(bytes))
        , m_waiting(std::make_unique_for_overwrite<std::uint8_t[]>(bytes))
        , m_read(std::make_unique_for_overwrite<std::uint8_t[]>(bytes))
    {}

    // Copies a picture; one that was not taken yet is lost. One thread at a time.
    void put(const std::uint8_t* picture)
    {
        std::memcpy(m_written.get(), picture, m_bytes);
        const std::lock_guard lock(m_mutex);
        std::swap(m_written, m_waiting);
        m_fresh = true;
    }

    // The newest picture, to be read until the next call, or null when there is none since the last
    // one. One thread at a time.
    [[nodiscard]] const std::uint8_t* take()
    {
        const std::lock_guard lock(m_mutex);
        if (!std::exchange(m_fresh, false)) {
            return nullptr;
        }
        std::swap(m_waiting, m_read);
        return m_read.get();
    }

private:
    using Buffer = std::unique_ptr<std::uint8_t[]>;

    const std::size_t m_bytes;
    Buffer m_written;
    std::mutex m_mutex; // guards the two below, held for a swap only
    Buffer m_waiting;
    bool m_fresh = false;
    Buffer m_read;
};

} // namespace pevrix
