#include "tools/camreader/ThisProcess_win.h"

#include "tools/doubles/ThisProcess.h"

#include <windows.h>

namespace pevrix {

std::int64_t sharedMicroseconds()
{
    static const std::int64_t frequency = [] {
        LARGE_INTEGER value;
        QueryPerformanceFrequency(&value);
        return value.QuadPart;
    }();
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart / frequency * 1'000'000 + now.QuadPart % frequency * 1'000'000 / frequency;
}

ProcessUse processUse()
{
    return {.handles = static_cast<std::size_t>(openHandles()),
            .privateKilobytes = static_cast<std::size_t>(heapBytes() / 1024)};
}

} // namespace pevrix
