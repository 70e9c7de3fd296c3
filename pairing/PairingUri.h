#pragma once

#include <QString>
#include <QStringList>

namespace pevrix {

// What a pairing code tells a phone: whom it pairs with, the secret to present and where to
// connect. Written as "pevrix://pair?v=1&pc=NAME&t=TOKEN&h=ADDRESS:PORT,ADDRESS:PORT", always
// with the keys in this order; `h` is left out when there is no endpoint.
struct PairingUri
{
    QString pcName;
    QString token;         // base64url characters
    QStringList endpoints; // "ADDRESS:PORT" with a dotted IPv4 address, best first
};

// The URI's text. It is pure ASCII: the name is percent-encoded as UTF-8.
[[nodiscard]] QString writePairingUri(const PairingUri& uri);

} // namespace pevrix
