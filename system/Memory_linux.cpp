#include "system/Memory.h"

#include <malloc.h>

namespace pevrix {

namespace {

constexpr int kLargeBlock = 1024 * 1024; // bytes; most pictures are larger, most messages smaller

} // namespace

// Left alone, the heap takes the first large block that is freed as a sign to keep those that
// follow, up to 32 MiB each.
void returnLargeBlocksAtOnce()
{
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
}

// The heap keeps pages that lie between others in use; a stream's messages leave many of them.
void returnFreeMemory()
{
    malloc_trim(0);
}

} // namespace pevrix
