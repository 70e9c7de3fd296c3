#pragma once

#include "pairing/LanEndpoints.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace pevrix {

// Everything that one refresh of the pairing produces.
struct PairingInfo
{
    QString token;         // what phones must present; for the phone server
    QString shownToken;    // the token in the URI: `token`, or a fixed one in capture mode
    QString pcName;        // for the phone server and the window
    QString addressText;   // the preferred "ADDRESS:PORT", or "No LAN address found"
    QString uri;           // what the code says
    QString qrDataUrl;     // the code as a PNG data URL, empty when the URI is too long for one
    QStringList endpoints; // that the URI names, best first
};

// Gives the "ADDRESS:PORT" texts of this machine for a port; findLanEndpoints() is one.
using EndpointFinder = std::function<QStringList(quint16 port)>;

// Puts together what is shown. `endpoints` are "ADDRESS:PORT" texts, best first.
// In capture mode PC name, shown token, address text and the code's endpoints are fixed
// demonstration values, so that published screenshots do not show the real ones.
[[nodiscard]] PairingInfo describePairing(const QString& token, const QString& hostName,
                                          const QStringList& endpoints, quint16 port,
                                          bool captureMode);

// Makes a new token, forgetting the one before, leaves it in `tokenFolder`'s side file and
// describes the pairing of this machine as it is now. `port` is where phones connect. Call it after
// the server has begun to listen and whenever trust is taken back; then, before the event loop runs
// again, hand `token` and `pcName` to the server: from then on it refuses phones that come with an
// older code.
[[nodiscard]] PairingInfo refreshPairing(const QString& tokenFolder, quint16 port, bool captureMode,
                                         const EndpointFinder& findEndpoints = findLanEndpoints);

// The same pairing, with the same token, at the addresses that the machine has by now: networks
// come and go while the program runs. Nothing while they are as they were.
[[nodiscard]] std::optional<PairingInfo>
moveToPresentAddresses(const PairingInfo& pairing, quint16 port, bool captureMode,
                       const EndpointFinder& findEndpoints = findLanEndpoints);

} // namespace pevrix
