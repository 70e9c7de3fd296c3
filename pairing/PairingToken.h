#pragma once

#include <QString>

namespace pevrix {

// Makes the secret that a phone presents to prove that it has seen our pairing code: 128 random
// bits of the securely seeded generator as 22 characters of A-Z, a-z, 0-9, "-" and "_", so that
// it goes into a URI as it is. Thread-safe.
[[nodiscard]] QString makePairingToken();

// Leaves `token` in the file "pairing-token.txt" of `folder`, replacing what it held: the token's
// characters and nothing else, readable by the file's owner only where the platform allows it.
// The file serves tools beside the program; pairing never reads it, so one that cannot be opened
// is left as it is without complaint.
void writeTokenFile(const QString& folder, const QString& token);

} // namespace pevrix
