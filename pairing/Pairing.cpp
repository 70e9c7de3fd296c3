#include "pairing/Pairing.h"

#include "pairing/PairingToken.h"
#include "pairing/PairingUri.h"
#include "pairing/QrImage.h"

#include <QHostInfo>

using namespace Qt::StringLiterals;

namespace pevrix {
PairingInfo describePairing(const QString& token, const QString& hostName,
                            const QStringList& endpoints, quint16 port, bool captureMode)
{
    PairingInfo info{.token = token,
                     .shownToken = token,
                     .pcName = hostName,
                     .addressText = endpoints.value(0, u"No LAN address found"_s),
                     .uri = {},
                     .qrDataUrl = {},
                     .endpoints = endpoints};
    QStringList shownEndpoints = endpoints;
    if (captureMode) {
        info.pcName = u"DESKTOP-PEVRIX"_s;
        info.addressText = u"192.168.1.42:"_s + QString::number(port);
        info.shownToken = u"Bm4Rt8Wq2Zx6Hn3K"_s;
        shownEndpoints = {info.addressText};
    }
    info.uri = writePairingUri({info.pcName, info.shownToken, shownEndpoints});
    info.qrDataUrl = makeQrDataUrl(info.uri);
    return info;
}

PairingInfo refreshPairing(const QString& tokenFolder, quint16 port, bool captureMode,
                           const EndpointFinder& findEndpoints)
{
    const QString token = makePairingToken();
    writeTokenFile(tokenFolder, token);
    return describePairing(token, QHostInfo::localHostName(), findEndpoints(port), port,
                           captureMode);
}

std::optional<PairingInfo> moveToPresentAddresses(const PairingInfo& pairing, quint16 port,
                                                  bool captureMode,
                                                  const EndpointFinder& findEndpoints)
{
    const QStringList endpoints = findEndpoints(port);
    if (endpoints == pairing.endpoints) {
        return std::nullopt;
    }
    return describePairing(pairing.token, QHostInfo::localHostName(), endpoints, port, captureMode);
}

} // namespace pevrix
