#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QVariantMap>

#include <cstdint>
#include <optional>

namespace pevrix {

// Packets of the usbmux daemon, and the two requests that we make. Pure functions.
//
//   offset  0  length   whole packet, header included    all fields: unsigned 32 bits,
//           4  version  1                                little-endian; only the length
//           8  type     8, a property list               is read in received packets
//          12  tag      counts our packets
//          16  payload  XML property list, UTF-8, not zero-terminated

inline constexpr qsizetype kMuxHeaderSize = 16;

// Longest packet believed. The longest real one, an attached phone, has about 1 KiB.
inline constexpr qsizetype kMuxMaxPacketSize = qsizetype{4} * 1024 * 1024;

// The port on which the phone app listens, and the same as the daemon wants it inside its request:
// in network byte order, read back as a little-endian integer.
inline constexpr std::uint16_t kPhonePort = 7847;
inline constexpr std::uint16_t kPhonePortInNetworkOrder = 42782;

[[nodiscard]] QByteArray buildMuxHeader(qsizetype payloadSize, std::uint32_t tag);

// Asks the daemon to announce the phones that are, and will be, attached.
[[nodiscard]] QVariantMap listenRequest();

// Asks the daemon to join the connection to kPhonePort of a phone that it announced.
[[nodiscard]] QVariantMap connectRequest(int deviceId);

// Whether a "Result" says that the request before it was carried out: its "Number" is there and 0.
[[nodiscard]] bool isSuccess(const QVariantMap& result);

// How many bytes `buffer` lacks before its first header, then its first packet, is complete; 0 when
// a whole packet is there, nothing when the length in the header is impossible. A reader that never
// takes more than this leaves what follows the packet in its socket.
[[nodiscard]] std::optional<qsizetype> missingMuxBytes(QByteArrayView buffer);

// Takes one packet from the front of `buffer` and returns its property list, or nothing when none
// is complete. An impossible length loses the stream's framing: it clears the buffer.
[[nodiscard]] std::optional<QVariantMap> takeMessage(QByteArray& buffer);

} // namespace pevrix
