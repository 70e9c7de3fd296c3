#pragma once

#include "picture/PictureSize.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

namespace pevrix {

// A decoded or drawn picture with its size: packed 3-byte pixels in the order blue, green, red, top
// row first, rows of exactly width * 3 bytes.
struct Picture
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels; // pictureBytes(width, height) of them
};

// How a picture is handed on: everybody who has it shares it, any thread may read it, and nobody
// writes to it any more.
using SharedPicture = std::shared_ptr<const Picture>;

// `pixels` has pictureBytes(width, height) of them.
[[nodiscard]] inline SharedPicture sharePicture(int width, int height,
                                                std::vector<std::uint8_t> pixels)
{
    return std::make_shared<const Picture>(Picture{width, height, std::move(pixels)});
}

// Gives pictures to fill, in the memory of earlier pictures that are no longer in use, so that a
// running stream allocates nothing. Used by one thread at a time; its pictures may outlive it.
class PicturePool
{
public:
    // A picture of this size with unspecified pixels. It must not be written to once it is shared.
    // The size must be one that isPictureSize() accepts. Throws std::bad_alloc.
    [[nodiscard]] std::shared_ptr<Picture> take(int width, int height)
    {
        const auto unused = std::ranges::find_if(
            m_pictures, [](const auto& picture) { return picture.use_count() == 1; });
        std::shared_ptr<Picture> picture;
        if (unused != m_pictures.end()) {
            picture = *unused;
            // The last of its other owners may have read it in another thread.
            std::atomic_thread_fence(std::memory_order_acquire);
        } else {
            picture = m_pictures.emplace_back(std::make_shared<Picture>());
        }
        picture->width = width;
        picture->height = height;
        picture->pixels.resize(pictureBytes(width, height));
        return picture;
    }

    // The same with a copy of the top left part of larger pixels, which have rows of `stride`
    // bytes.
    [[nodiscard]] std::shared_ptr<Picture> takeCopy(const std::uint8_t* pixels, std::size_t stride,
                                                    int width, int height)
    {
        auto picture = take(width, height);
        const std::size_t row = pictureBytes(width, 1);
        for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
            std::memcpy(&picture->pixels[y * row], pixels + y * stride, row);
        }
        return picture;
    }

    // Frees the memory. To be called when the next pictures have another size.
    void clear() { m_pictures.clear(); }

private:
    std::vector<std::shared_ptr<Picture>> m_pictures; // as many as were ever in use at one time
};

} // namespace pevrix
