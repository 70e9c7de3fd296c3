#pragma once

#include <cstdint>

namespace pevrix {

// Whether this is Windows as Wine plays it. A test that Wine cannot pass asks this and skips
// itself with the reason; docs/windows.md lists those tests.
[[nodiscard]] bool runsUnderWine();

// What a leak of this process would show in, just now.

// Bytes that are allocated. (Of the resident memory a sanitizer keeps a lot that was freed.)
[[nodiscard]] std::int64_t heapBytes();

// Files, sockets and other objects of the system that are open.
[[nodiscard]] int openHandles();

[[nodiscard]] int runningThreads();

} // namespace pevrix
