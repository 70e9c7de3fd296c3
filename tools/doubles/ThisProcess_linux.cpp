#include "tools/doubles/ThisProcess.h"

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <malloc.h>

// There when the program runs under a sanitizer, which has a heap of its own.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizers' own name
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace pevrix {

namespace {

int entriesOf(const char* folder)
{
    return static_cast<int>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

} // namespace

bool runsUnderWine()
{
    return false;
}

std::int64_t heapBytes()
{
    if (__sanitizer_get_current_allocated_bytes != nullptr) {
        return static_cast<std::int64_t>(__sanitizer_get_current_allocated_bytes());
    }
    const struct mallinfo2 info = mallinfo2();
    return static_cast<std::int64_t>(info.uordblks + info.hblkhd);
}

int openHandles()
{
    return entriesOf("/proc/self/fd");
}

int runningThreads()
{
    return entriesOf("/proc/self/task");
}

} // namespace pevrix
