#pragma once

#include "softcam/PictureConverter.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <mutex>
#include <utility>

namespace pevrix {

// Hands the newest picture, of whatever size, from one thread to another. Of three buffers each
// side owns one, and the third changes hands: neither side ever waits while the other copies or
// reads. Memory is taken for the first picture, and anew for one of another size.
class PictureMailbox
{
public:
    // Copies a picture; one that was not taken yet is lost. One thread at a time.
    // Throws std::bad_alloc.
    void put(const BgrPicture& picture)
    {
        m_written.assign(picture);
        const std::lock_guard lock(m_mutex);
        std::swap(m_written, m_waiting);
        m_fresh = true;
    }

    // The newest picture, to be read until the next call; without pixels when there is none. One
    // thread at a time, the reading one.
    [[nodiscard]] BgrPicture newest()
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_fresh, false)) {
            std::swap(m_waiting, m_read);
        }
        return m_read.picture;
    }

    // Leaves no picture to be read, so that a later reader does not see an old one. The reading
    // thread.
    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_fresh = false;
        m_read = {};
    }

private:
    struct Slot
    {
        std::unique_ptr<std::uint8_t[]> bytes;
        std::size_t size = 0;
        BgrPicture picture; // in `bytes`

        void assign(const BgrPicture& from)
        {
            const std::size_t wanted = std::size_t{3} * from.width * from.height;
            if (wanted != size) {
                *this = {};
                bytes = std::make_unique_for_overwrite<std::uint8_t[]>(wanted);
                size = wanted;
            }
            std::memcpy(bytes.get(), from.pixels, size);
            picture = {bytes.get(), from.width, from.height};
        }
    };

    Slot m_written;
    std::mutex m_mutex; // guards the two below, held for a swap only
    Slot m_waiting;
    bool m_fresh = false;
    Slot m_read;
};

} // namespace pevrix
