#pragma once

#include <QHostAddress>
#include <QString>
#include <QStringList>

#include <optional>

namespace pevrix {

// What a pairing code tells a phone: whom it pairs with, the secret to present and where to
// connect. Written as "pevrix://pair?v=1&pc=NAME&t=TOKEN&h=ADDRESS:PORT,ADDRESS:PORT", always
// with the keys in this order; `h` is left out when there is no endpoint.
struct PairingUri
{
    QString pcName;
    QString token;         // base64url characters
    QStringList endpoints; // "ADDRESS:PORT" with a dotted IPv4 address, best first

    friend bool operator==(const PairingUri&, const PairingUri&) = default;
};

// A checked entry of PairingUri::endpoints.
struct PairingEndpoint
{
    QHostAddress address;
    quint16 port = 0;
};

// The URI's text. It is pure ASCII: the name is percent-encoded as UTF-8.
[[nodiscard]] QString writePairingUri(const PairingUri& uri);

// Reads a URI that came from outside. Nothing when it is not a pairing URI of version 1, when a
// key is missing, repeated or malformed, or when the text is longer than a code can carry. The
// keys may stand in any order and unknown ones are skipped, so that later programs may add some.
// Every returned endpoint satisfies parsePairingEndpoint().
[[nodiscard]] std::optional<PairingUri> parsePairingUri(QStringView text);

// Splits "192.168.1.7:8788". Nothing unless the address is a full dotted IPv4 address and the
// port is 1 to 65535, both in their plain decimal form.
[[nodiscard]] std::optional<PairingEndpoint> parsePairingEndpoint(QStringView text);

} // namespace pevrix
