#include "usb/TunnelAttempt.h"

#include "usb/MuxPacket.h"

#include <QVariantMap>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace pevrix {

TunnelAttempt::Reply TunnelAttempt::readReply()
{
    while (const std::optional<qsizetype> missing = missingMuxBytes(buffer)) {
        if (*missing > 0) {
            const QByteArray bytes =
                socket->read(std::min<qint64>(*missing, socket->bytesAvailable()));
            if (bytes.isEmpty()) {
                return Reply::None;
            }
            buffer += bytes;
            continue;
        }
        const QVariantMap message = takeMessage(buffer).value_or(QVariantMap());
        if (message.value(u"MessageType"_s).toString() == "Result"_L1) {
            return isSuccess(message) ? Reply::Accepted : Reply::Refused;
        }
    }
    return Reply::Refused;
}

} // namespace pevrix
