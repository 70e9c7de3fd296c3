#pragma once

#include "phone/MessageSplitter.h"

#include <QString>

#include <optional>

namespace pevrix {

// What PhoneServer knows about one connection. The ways through its states:
//
//     adopted --accepted hello--> handshaken --+
//        |                                     +--> closing --> removed
//        +-------------------------------------+
//
// "closing" is entered when we end the connection ourselves; from then on nothing that arrives
// is looked at. When the peer ends it, the session is removed without passing through closing.
struct PhoneSession
{
    int id = 0;
    MessageSplitter splitter;
    bool handshaken = false;
    bool usb = false; // a USB tunnel, otherwise a Wi-Fi connection
    QString name;
    QString deviceId;
    std::optional<StreamDescription> earlyStream; // announced before the hello
    qint64 lastRxMs = 0; // when the peer last showed a sign of life, on the server's clock

    bool closing = false;
    bool reading = false;    // its messages are being dispatched, further up the call stack
    bool turnQueued = false; // it waits for its next turn at reading
    bool backlogged = false; // the peer does not take what we send: reading rests until it does

    // Anybody may connect from the network; nobody knows them before an accepted hello.
    [[nodiscard]] bool stranger() const { return !usb && !handshaken; }
    [[nodiscard]] bool live() const { return handshaken && !closing; }
};

} // namespace pevrix
