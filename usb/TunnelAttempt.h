#pragma once

#include <QByteArray>
#include <QTcpSocket>

namespace pevrix {

// One tunnel being opened: a connection to the usbmux daemon that is to become the connection to a
// phone. The socket is a child of UsbMuxClient and outlives the attempt when the daemon accepts.
struct TunnelAttempt
{
    enum class Reply
    {
        None,     // not there yet
        Accepted, // the socket is joined to the phone
        Refused,  // by the daemon, or its answer is no packet at all
    };

    // Reads the daemon's answer from the socket and not a byte more: after an acceptance the phone
    // may have spoken already, and those bytes belong to whoever gets the socket.
    [[nodiscard]] Reply readReply();

    QTcpSocket* socket = nullptr;
    int deviceId = 0;
    QByteArray buffer;
};

} // namespace pevrix
