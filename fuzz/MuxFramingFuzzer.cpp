// Arbitrary bytes as the daemon's stream, arriving in pieces. The first byte says how long a piece
// is.
#include "usb/MuxPacket.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const qsizetype piece = std::max<qsizetype>(1, data[0]);
    const QByteArrayView stream(data + 1, static_cast<qsizetype>(size) - 1);
    QByteArray buffer;
    for (qsizetype at = 0; at < stream.size(); at += piece) {
        buffer += stream.sliced(at, std::min(piece, stream.size() - at));
        qsizetype before = buffer.size();
        while (pevrix::takeMessage(buffer)) {
            if (before - buffer.size() < pevrix::kMuxHeaderSize) {
                std::abort();
            }
            before = buffer.size();
        }
        // What is left is the start of a packet that is allowed to come.
        const auto missing = pevrix::missingMuxBytes(buffer);
        if (!missing || *missing == 0 || *missing > pevrix::kMuxMaxPacketSize) {
            std::abort();
        }
    }
    return 0;
}
