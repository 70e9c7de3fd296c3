#pragma once

class QTcpSocket;

namespace pevrix {

/// Tells the peer that no more bytes will come, while its own can still be read. A plain close
/// would turn into a reset, which takes bytes on their way with it, whenever something that the
/// peer sent is still unread. Only for a socket with nothing left to write; repeating it is
/// harmless.
void shutDownSending(QTcpSocket& socket);

/// Closes the socket with a TCP reset. Emits disconnected.
void resetConnection(QTcpSocket& socket);

} // namespace pevrix
