// Reads arbitrary text as a pairing URI; whatever is accepted must survive being written again.
#include "pairing/PairingUri.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto uri = pevrix::parsePairingUri(text);
    if (uri && pevrix::parsePairingUri(pevrix::writePairingUri(*uri)) != uri) {
        std::abort();
    }
    return 0;
}
