#pragma once

namespace pevrix {

// The index of the interface through which the system would reach the public internet (asked for
// 8.8.8.8; nothing is sent), as QNetworkInterface::index() numbers them. 0 when there is no such
// route. Thread-safe; it never waits for the network.
[[nodiscard]] int defaultRouteInterfaceIndex();

} // namespace pevrix
