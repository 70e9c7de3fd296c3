#include "app/InstanceChannel.h"

#include <QCryptographicHash>
#include <QFile>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

// An address holds 108 bytes, some of which are taken by the folder in which the socket is made
// before it is given its name.
constexpr qsizetype kMaxNameBytes = 90;

constexpr auto kTicketVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

QString instanceChannelName(const QString& folder)
{
    QString name = folder + u"/instance.socket"_s;
    if (QFile::encodeName(name).size() <= kMaxNameBytes) {
        return name;
    }
    const QString own = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QByteArray hash =
        QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().first(16);
    name = own + u"/pevrix-"_s + QLatin1StringView(hash);
    return !own.isEmpty() && QFile::encodeName(name).size() <= kMaxNameBytes ? name : QString();
}

QByteArray grantForeground(qintptr)
{
    return qgetenv(kTicketVariable);
}

void useForegroundGrant(const QByteArray& ticket)
{
    if (!ticket.isEmpty() && !ticket.contains('\0')) {
        qputenv(kTicketVariable, ticket); // where Qt looks for it when a window is activated
    }
}

} // namespace pevrix
