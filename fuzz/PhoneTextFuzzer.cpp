// Arbitrary bytes as what a phone says of itself and of its stream.
#include "phone/Handshake.h"
#include "phone/Protocol.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray payload(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const pevrix::Hello hello = pevrix::parseHello(payload);
    const auto verdict = pevrix::judgeHello(hello, QStringLiteral("token"), {});
    // Only who says the token comes in.
    if (!verdict.refusal && hello.token != u"token") {
        std::abort();
    }
    static_cast<void>(pevrix::parseStreamInfo(payload));
    return 0;
}
