#pragma once

#include "softcam/PictureFormat.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace pevrix {

// The formats that programs may choose from: that of the camera that is there, and behind it those
// on which programs agreed before, one of each size. Firefox remembers the sizes that it saw when
// it first opened the camera, and asks for one of them ever after. Sizes that nobody took are not
// kept: a page that asks for none in particular could be given a turned phone's.
class OfferedFormats
{
public:
    static constexpr std::size_t kMost = 8;

    // The best one first.
    [[nodiscard]] std::span<const CameraFormat> all() const { return {m_offered.data(), m_count}; }
    [[nodiscard]] bool isLedBy(const CameraFormat& format) const
    {
        return m_count > 0 && m_offered.front() == format;
    }

    void lead(const CameraFormat& format)
    {
        m_offered.front() = format;
        m_count = 1;
        for (const CameraFormat& taken : std::span(m_taken).first(m_takenCount)) {
            if (!haveSameSize(taken, format)) {
                m_offered.at(m_count++) = taken;
            }
        }
    }

    // A program agreed on it. With too many of them the one that was taken first goes.
    void keep(const CameraFormat& format)
    {
        const auto end = m_taken.begin() + static_cast<std::ptrdiff_t>(m_takenCount);
        auto place = std::find_if(m_taken.begin(), end, [&format](const CameraFormat& taken) {
            return haveSameSize(taken, format);
        });
        if (place == m_taken.end()) {
            place = m_taken.end() - 1;
        } else if (place == end) {
            ++m_takenCount;
        }
        *place = format;
        std::rotate(m_taken.begin(), place, place + 1);
    }

private:
    static bool haveSameSize(const CameraFormat& one, const CameraFormat& other)
    {
        return one.width == other.width && one.height == other.height;
    }

    std::array<CameraFormat, kMost> m_offered;
    std::size_t m_count = 0;
    std::array<CameraFormat, kMost - 1> m_taken; // the last one first
    std::size_t m_takenCount = 0;
};

} // namespace pevrix
