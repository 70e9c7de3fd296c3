#pragma once

#include "phone/Protocol.h"

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

// Who may connect: the rules of the hello as decisions over plain data, without sockets.
namespace pevrix {

enum class Refusal
{
    VersionMismatch,
    NeedsPair,
    DuplicateOverUsb,
};

// The error payload that tells the phone why it was refused.
[[nodiscard]] QByteArray refusalPayload(Refusal refusal);

struct HelloVerdict
{
    std::optional<Refusal> refusal; // none: the phone may come in, unless it is a duplicate
    // The phone proved the current pairing token, and is not yet trusted with it.
    bool newlyTrusted = false;
};

// Judges version and pairing. An empty pairingToken means that no pairing is required. A phone
// in trusted (deviceId to token) stays welcome with the token it was trusted with, also after
// the pairing token changed.
[[nodiscard]] HelloVerdict judgeHello(const Hello& hello, const QString& pairingToken,
                                      const QHash<QString, QString>& trusted);

// Another connection of the phone that is saying hello, handshaken and not being closed.
struct RivalSession
{
    int id = 0;
    bool usb = false;
};

struct DuplicateVerdict
{
    std::optional<Refusal> refusal;
    QList<int> replaced; // ids of the sessions to close in favour of the newcomer
};

// A phone has one connection: the newest one, but Wi-Fi never replaces USB. rivals are the live
// sessions of the same, non-empty deviceId.
[[nodiscard]] DuplicateVerdict judgeDuplicates(bool newcomerUsb, const QList<RivalSession>& rivals);

} // namespace pevrix
