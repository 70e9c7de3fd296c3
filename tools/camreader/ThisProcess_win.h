#pragma once

#include <cstddef>
#include <cstdint>

namespace pevrix {

// Microseconds of a clock that all processes share.
[[nodiscard]] std::int64_t sharedMicroseconds();

// What a leak of this process would show in.
struct ProcessUse
{
    std::size_t handles = 0;
    std::size_t privateKilobytes = 0;
};
[[nodiscard]] ProcessUse processUse();

} // namespace pevrix
