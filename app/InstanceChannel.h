#pragma once

#include <QByteArray>
#include <QString>

namespace pevrix {

// The name, for a local server, at which the Pevrix with this folder of settings is reached. Empty
// where the system has room for none.
[[nodiscard]] QString instanceChannelName(const QString& folder);

// Lets the process at the other end of the connection bring its window to the front in our place:
// a user has just started us. The ticket is to be handed over to it.
[[nodiscard]] QByteArray grantForeground(qintptr connection);

// For the process that was sent the ticket, before it activates its window.
void useForegroundGrant(const QByteArray& ticket);

} // namespace pevrix
