#pragma once

#include <QByteArray>

#include <cstdint>

namespace pevrix {

// Packets that a usbmux daemon sends, written the way real ones do: an indented property list.
// Pure functions.

/// Answers to a request, as numbers on the wire.
enum class MuxResult
{
    Success = 0,
    BadCommand = 1,
    BadDevice = 2,
    ConnectionRefused = 3,
};

/// `tag` is the one of the request that is answered.
[[nodiscard]] QByteArray muxResult(MuxResult result, std::uint32_t tag);

/// A phone appeared: on the cable, or in the network, of which the same daemon tells.
[[nodiscard]] QByteArray muxAttached(int deviceId, bool overNetwork);

[[nodiscard]] QByteArray muxDetached(int deviceId);

/// A header whose length no packet has.
[[nodiscard]] QByteArray muxCorruptHeader();

} // namespace pevrix
