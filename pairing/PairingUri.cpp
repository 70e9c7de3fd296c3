#include "pairing/PairingUri.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace pevrix {

QString writePairingUri(const PairingUri& uri)
{
    QString text = u"pevrix://pair?v=1&pc="_s +
                   QString::fromLatin1(QUrl::toPercentEncoding(uri.pcName)) + u"&t="_s + uri.token;
    if (!uri.endpoints.isEmpty()) {
        text += u"&h="_s + uri.endpoints.join(u',');
    }
    return text;
}

} // namespace pevrix
