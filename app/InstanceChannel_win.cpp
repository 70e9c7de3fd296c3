#include "app/InstanceChannel.h"

#include <QCryptographicHash>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

using namespace Qt::StringLiterals;

namespace pevrix {

// Pipes of all users and sessions share one space of names.
QString instanceChannelName(const QString& folder)
{
    const QByteArray hash =
        QCryptographicHash::hash(folder.toCaseFolded().toUtf8(), QCryptographicHash::Sha256)
            .toHex();
    return u"Pevrix-"_s + QLatin1StringView(hash.first(16));
}

QByteArray grantForeground(qintptr connection)
{
    ULONG process = 0;
    if (GetNamedPipeServerProcessId(reinterpret_cast<HANDLE>(connection), &process)) {
        AllowSetForegroundWindow(process);
    }
    return {}; // the system remembers
}

void useForegroundGrant(const QByteArray&) {}

} // namespace pevrix
