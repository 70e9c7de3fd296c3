#pragma once

namespace pevrix {

/// Whether this is Windows as Wine plays it. A test that Wine cannot pass asks this and skips
/// itself with the reason; docs/windows.md lists those tests.
[[nodiscard]] bool runsUnderWine();

/// Files, sockets and other objects of the system that this process holds open.
[[nodiscard]] int openHandles();

} // namespace pevrix
