#include "phone/Protocol.h"

#include "phone/PlainText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <algorithm>

namespace pevrix {

using namespace Qt::StringLiterals;

namespace {

// One JSON string with its quotes and escapes. QJsonObject sorts its keys, so objects whose
// order counts are put together by hand from these.
QByteArray jsonString(const QString& text)
{
    return QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact).sliced(1).chopped(1);
}

// Larger texts read as empty. Phones send some hundred bytes, while nested brackets take some 40
// times their size in memory, from anybody who connects.
constexpr qsizetype kMaxJsonSize = qsizetype{64} * 1024;

QJsonObject parseObject(const QByteArray& json)
{
    return json.size() <= kMaxJsonSize ? QJsonDocument::fromJson(json).object() : QJsonObject();
}

QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

std::array<char, kHeaderSize> encodeHeader(const MessageHeader& header)
{
    std::array<char, kHeaderSize> bytes{};
    bytes[0] = static_cast<char>(header.type);
    bytes[1] = static_cast<char>(header.flags);
    qToLittleEndian(header.length, bytes.data() + 2);
    return bytes;
}

MessageHeader decodeHeader(std::span<const char, kHeaderSize> bytes)
{
    return {
        .type = static_cast<MessageType>(bytes[0]),
        .flags = static_cast<quint8>(bytes[1]),
        .length = qFromLittleEndian<quint32>(bytes.data() + 2),
    };
}

QByteArray buildMessage(MessageType type, QByteArrayView payload, quint8 flags)
{
    Q_ASSERT(payload.size() <= qsizetype{kMaxPayload});
    const auto header = encodeHeader(
        {.type = type, .flags = flags, .length = static_cast<quint32>(payload.size())});
    QByteArray message;
    message.reserve(kHeaderSize + payload.size());
    message.append(header.data(), kHeaderSize);
    message.append(payload);
    return message;
}

std::array<char, kHeaderSize + kTimestampSize> encodeVideoFrameHeader(qint64 ptsUsec, bool keyframe,
                                                                      qsizetype accessUnitSize)
{
    Q_ASSERT(accessUnitSize <= qsizetype{kMaxPayload} - kTimestampSize);
    const auto header =
        encodeHeader({.type = MessageType::VideoFrame,
                      .flags = keyframe ? kKeyframeFlag : quint8{0},
                      .length = static_cast<quint32>(kTimestampSize + accessUnitSize)});
    std::array<char, kHeaderSize + kTimestampSize> bytes{};
    std::ranges::copy(header, bytes.begin());
    qToLittleEndian(ptsUsec, bytes.data() + kHeaderSize);
    return bytes;
}

qint64 decodeTimestamp(std::span<const char, kTimestampSize> bytes)
{
    return qFromLittleEndian<qint64>(bytes.data());
}

Hello parseHello(const QByteArray& payload)
{
    const QJsonObject object = parseObject(payload);
    return {
        .version = object["v"_L1].toInt(),
        .token = object["token"_L1].toString(),
        .deviceId = object["deviceId"_L1].toString(),
        .name = plainText(object["name"_L1].toString(u"Phone"_s), kMaxNameLength),
        .model = plainText(object["modelName"_L1].toString(object["model"_L1].toString()),
                           kMaxNameLength),
        .os = plainText(object["osVersion"_L1].toString(), kMaxNameLength),
    };
}

StreamDescription parseStreamInfo(const QByteArray& payload)
{
    const QJsonObject object = parseObject(payload);
    const StreamDescription defaults;
    return {
        .width = object["width"_L1].toInt(defaults.width),
        .height = object["height"_L1].toInt(defaults.height),
        .fps = object["fps"_L1].toInt(defaults.fps),
    };
}

QByteArray helloReplyPayload()
{
    return R"({"v":1,"sessionId":"dev","active":false,)"
           R"("request":{"codec":"h264","width":1280,"height":720,"fps":30,"bitrateKbps":6000}})"_ba;
}

QByteArray errorPayload(const QString& code, const QString& message)
{
    return R"({"code":)" + jsonString(code) + R"(,"message":)" + jsonString(message) + '}';
}

QByteArray usbHelloPayload(const QString& token, const QString& pcName)
{
    return R"({"token":)" + jsonString(token) + R"(,"pcName":)" + jsonString(pcName) +
           R"(,"transport":"usb"})";
}

QByteArray activePayload(bool active)
{
    return compact({{u"active"_s, active}});
}

QByteArray pingPayload(qint64 elapsedMs)
{
    return compact({{u"t"_s, static_cast<double>(elapsedMs)}});
}

} // namespace pevrix
