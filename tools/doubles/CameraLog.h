#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pevrix {

// The file that the test camera library appends its records to; none when it is not set.
inline constexpr const char* kCameraLogVariable = "TESTCAM_LOG";

enum class CameraEvent : std::uint64_t
{
    None = 0,
    Created,
    Sent,
    Deleted,
};

// One call of the camera library, as it lies in the file.
struct CameraRecord
{
    CameraEvent event = CameraEvent::None;
    std::int64_t time = 0; // nanoseconds of the steady clock, which all processes share
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint64_t hash = 0; // of the pixels that were sent
};

// Tells pictures apart, at a rate that a camera library can afford under a sanitizer.
inline std::uint64_t pictureHash(const std::uint8_t* pixels, std::size_t bytes)
{
    std::uint64_t hash = bytes;
    for (std::size_t at = 0; at < bytes; at += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        const std::size_t left = bytes - at;
        std::memcpy(&word, pixels + at, left < sizeof word ? left : sizeof word);
        hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32;
    }
    return hash;
}

} // namespace pevrix
