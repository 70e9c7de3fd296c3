#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace pevrix {

// What the soak shares with libpevrix-shortage.so, which it preloads into the program: a file of
// zeros that both map. The library makes large allocations fail and counts them.
struct Shortage
{
    static constexpr const char* kFileVariable = "PEVRIX_SHORTAGE"; // in the environment: its path

    // Whose allocations these are.
    enum Owner : std::uint8_t
    {
        kProgram,
        kVideo, // libpevrix-ffmpeg.so, and FFmpeg behind it
        kCamera,
        kOwners
    };

    std::atomic<int> every;  // one of so many fails; 0: none
    std::atomic<int> passed; // since the last one that failed
    std::array<std::atomic<int>, kOwners> failed;
    // Where it was that they failed, by the addresses of the callers; 0: free.
    std::array<std::atomic<std::uint64_t>, 4096> places;

    static_assert(std::atomic<int>::is_always_lock_free &&
                  std::atomic<std::uint64_t>::is_always_lock_free);
};

} // namespace pevrix
