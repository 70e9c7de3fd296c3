#include "tools/phonesim/SocketEnd.h"

#include <QTcpSocket>

#include <sys/socket.h>

namespace pevrix {

void shutDownSending(QTcpSocket& socket)
{
    ::shutdown(static_cast<int>(socket.socketDescriptor()), SHUT_WR);
}

void resetConnection(QTcpSocket& socket)
{
    // Lingering for no time at all makes the close a reset.
    const linger now{1, 0};
    ::setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &now,
                 sizeof now);
    socket.abort();
}

} // namespace pevrix
