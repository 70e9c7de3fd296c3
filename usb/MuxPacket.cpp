#include "usb/MuxPacket.h"

#include "usb/Plist.h"

#include <QString>
#include <QtEndian>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

constexpr std::uint32_t kVersion = 1;
constexpr std::uint32_t kPropertyListType = 8;

static_assert(kPhonePortInNetworkOrder ==
              static_cast<std::uint16_t>((kPhonePort << 8) | (kPhonePort >> 8)));

QVariantMap request(const QString& type)
{
    return {{u"ClientVersionString"_s, u"Pevrix"_s},
            {u"MessageType"_s, type},
            {u"ProgName"_s, u"Pevrix"_s}};
}

qsizetype packetSize(QByteArrayView header)
{
    return qFromLittleEndian<std::uint32_t>(header.data());
}

} // namespace

QByteArray buildMuxHeader(qsizetype payloadSize, std::uint32_t tag)
{
    const std::array fields{
        qToLittleEndian(static_cast<std::uint32_t>(kMuxHeaderSize + payloadSize)),
        qToLittleEndian(kVersion), qToLittleEndian(kPropertyListType), qToLittleEndian(tag)};
    static_assert(sizeof fields == kMuxHeaderSize);
    return QByteArray(reinterpret_cast<const char*>(fields.data()), kMuxHeaderSize);
}

QVariantMap listenRequest()
{
    QVariantMap message = request(u"Listen"_s);
    // Protocol revision; from 3 on the daemon announces phones as property lists.
    message.insert(u"kLibUSBMuxVersion"_s, 3);
    return message;
}

QVariantMap connectRequest(int deviceId)
{
    QVariantMap message = request(u"Connect"_s);
    message.insert(u"DeviceID"_s, deviceId);
    message.insert(u"PortNumber"_s, kPhonePortInNetworkOrder);
    return message;
}

bool isSuccess(const QVariantMap& result)
{
    const QVariant number = result.value(u"Number"_s);
    return number.typeId() == QMetaType::LongLong && number.toLongLong() == 0;
}

std::optional<qsizetype> missingMuxBytes(QByteArrayView buffer)
{
    if (buffer.size() < kMuxHeaderSize) {
        return kMuxHeaderSize - buffer.size();
    }
    const qsizetype size = packetSize(buffer);
    if (size < kMuxHeaderSize || size > kMuxMaxPacketSize) {
        return std::nullopt;
    }
    return std::max<qsizetype>(0, size - buffer.size());
}

std::optional<QVariantMap> takeMessage(QByteArray& buffer)
{
    const std::optional<qsizetype> missing = missingMuxBytes(buffer);
    if (!missing) {
        buffer.clear();
    }
    if (missing != 0) {
        return std::nullopt;
    }
    const qsizetype size = packetSize(buffer);
    QVariantMap message =
        parsePlist(QByteArrayView(buffer).sliced(kMuxHeaderSize, size - kMuxHeaderSize));
    // Only moves the start of the buffer: a backlog of packets costs no copies.
    buffer.remove(0, size);
    return message;
}

} // namespace pevrix
