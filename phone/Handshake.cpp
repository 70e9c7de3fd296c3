#include "phone/Handshake.h"

#include <algorithm>

namespace pevrix {

using namespace Qt::StringLiterals;

QByteArray refusalPayload(Refusal refusal)
{
    switch (refusal) {
    case Refusal::VersionMismatch:
        return errorPayload(u"VERSION_MISMATCH"_s, u"Unsupported protocol version"_s);
    case Refusal::NeedsPair:
        return errorPayload(u"NEEDS_PAIR"_s, u"Scan the QR to pair"_s);
    case Refusal::DuplicateOverUsb:
        return errorPayload(u"DUPLICATE"_s, u"Already connected over USB"_s);
    }
    Q_UNREACHABLE_RETURN({});
}

HelloVerdict judgeHello(const Hello& hello, const QString& pairingToken,
                        const QHash<QString, QString>& trusted)
{
    if (hello.version != kProtocolVersion) {
        return {.refusal = Refusal::VersionMismatch};
    }
    if (pairingToken.isEmpty()) {
        return {};
    }
    const auto known = trusted.constFind(hello.deviceId);
    const bool trustedWithThis = known != trusted.cend() && *known == hello.token;
    if (hello.token == pairingToken) {
        return {.refusal = {}, .newlyTrusted = !hello.deviceId.isEmpty() && !trustedWithThis};
    }
    if (hello.token.isEmpty() || hello.deviceId.isEmpty() || !trustedWithThis) {
        return {.refusal = Refusal::NeedsPair};
    }
    return {};
}

DuplicateVerdict judgeDuplicates(bool newcomerUsb, const QList<RivalSession>& rivals)
{
    if (!newcomerUsb && std::ranges::any_of(rivals, &RivalSession::usb)) {
        return {.refusal = Refusal::DuplicateOverUsb, .replaced = {}};
    }
    DuplicateVerdict verdict;
    verdict.replaced.reserve(rivals.size());
    for (const RivalSession& rival : rivals) {
        verdict.replaced.append(rival.id);
    }
    return verdict;
}

} // namespace pevrix
