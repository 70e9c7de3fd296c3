#include "tools/phonesim/Malformed.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <algorithm>

namespace pevrix {

namespace {

constexpr MalformedKind kKinds[] = {
    {"hello-not-json", "a hello whose payload is no JSON", Malformed::HelloNotJson, true, false},
    {"hello-not-object", "a hello that is a JSON array", Malformed::HelloNotObject, true, false},
    {"hello-empty", "a hello without a payload", Malformed::HelloEmpty, true, false},
    {"hello-version", "a hello of protocol version 2", Malformed::HelloVersion, true, false},
    {"hello-text-version", "a hello whose version is the text \"1\"", Malformed::HelloTextVersion,
     true, false},
    {"hello-partial-header", "three bytes of a hello's header, then silence",
     Malformed::HelloPartialHeader, true, true},
    {"hello-header-only", "the header of a hello, then silence", Malformed::HelloHeaderOnly, true,
     true},
    {"hello-random", "64 KiB of random bytes in place of the hello", Malformed::HelloRandom, true,
     true},
    {"oversized-header", "a header announcing 16777217 bytes", Malformed::OversizedHeader, false,
     true},
    {"short-frame", "video frames of 0 to 7 bytes, without a whole timestamp",
     Malformed::ShortFrame, false, false},
    {"empty-frame", "a video frame that is a timestamp alone", Malformed::EmptyFrame, false, false},
    {"garbage-frame", "a keyframe of 5000 random bytes", Malformed::GarbageFrame, false, false},
    {"truncated-frame", "the last video frame again, cut in half", Malformed::TruncatedFrame, false,
     false},
    {"garbage-config", "parameter sets of random bytes", Malformed::GarbageConfig, false, false},
    {"empty-config", "parameter sets of no bytes", Malformed::EmptyConfig, false, false},
    {"bad-stream-info", "a stream info that is no JSON", Malformed::BadStreamInfo, false, false},
    {"absurd-stream-info", "stream infos with zero, negative, huge and mistyped numbers",
     Malformed::AbsurdStreamInfo, false, false},
    {"garbage-thumbnail", "a thumbnail of random bytes", Malformed::GarbageThumbnail, false, false},
    {"unknown-type", "messages of unused types and of types that only the PC sends",
     Malformed::UnknownType, false, false},
    {"second-hello", "the hello again", Malformed::SecondHello, false, false},
    {"big-ping", "a ping with a payload of 1 MiB", Malformed::BigPing, false, false},
    {"cut-message", "a message that stops in its middle, then silence", Malformed::CutMessage,
     false, true},
    {"random-bytes", "64 KiB of random bytes between two messages", Malformed::RandomBytes, false,
     true},
};

QByteArray randomBytes(qsizetype count)
{
    // A fixed seed, so that a fault that was found once is found again.
    QRandomGenerator generator(20'240'607);
    QByteArray bytes(count, Qt::Uninitialized);
    std::ranges::generate(bytes, [&] { return static_cast<char>(generator.generate()); });
    return bytes;
}

QByteArray header(MessageType type, quint32 length)
{
    const auto bytes = encodeHeader({type, 0, length});
    return {bytes.data(), std::ssize(bytes)};
}

QByteArray frame(qint64 ptsUsec, bool keyframe, QByteArrayView accessUnit)
{
    const auto head = encodeVideoFrameHeader(ptsUsec, keyframe, accessUnit.size());
    return QByteArray(head.data(), std::ssize(head)).append(accessUnit);
}

QByteArray shortFrames()
{
    QByteArray bytes;
    for (qsizetype size = 0; size < kTimestampSize; ++size) {
        bytes += buildMessage(MessageType::VideoFrame, QByteArray(size, 'x'), kKeyframeFlag);
    }
    return bytes;
}

QByteArray absurdStreamInfos()
{
    QByteArray bytes;
    for (const char* text :
         {R"({"width":0,"height":0,"fps":0})", R"({"width":-1280,"height":-720,"fps":-30})",
          R"({"width":2147483647,"height":2147483647,"fps":2147483647})",
          R"({"width":1e300,"height":"720","fps":[]})", "{}"}) {
        bytes += buildMessage(MessageType::StreamInfo, text);
    }
    return bytes;
}

QByteArray unknownTypes()
{
    QByteArray bytes;
    for (const int code : {0, 5, 15, 20, 65, 128, 255, 2, 3, 4, 32, 33, 49}) {
        bytes += buildMessage(static_cast<MessageType>(code), R"({"active":true})", 0xFF);
    }
    return bytes;
}

QByteArray helloOfVersion(const QByteArray& hello, const QJsonValue& version)
{
    QJsonObject object = QJsonDocument::fromJson(hello).object();
    object[QStringLiteral("v")] = version;
    return buildMessage(MessageType::Hello, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

std::span<const MalformedKind> malformedKinds()
{
    return kKinds;
}

const MalformedKind* findMalformed(Malformed kind)
{
    const auto* row = std::ranges::find(kKinds, kind, &MalformedKind::kind);
    return row == std::end(kKinds) ? nullptr : row;
}

Malformed malformedNamed(const QString& name)
{
    const auto* row = std::ranges::find_if(
        kKinds, [&](const MalformedKind& kind) { return name == QLatin1StringView(kind.name); });
    return row == std::end(kKinds) ? Malformed::None : row->kind;
}

QByteArray malformedBytes(Malformed kind, const QByteArray& hello, QByteArrayView accessUnit,
                          qint64 ptsUsec)
{
    switch (kind) {
    case Malformed::None:
        return {};
    case Malformed::HelloNotJson:
        return buildMessage(MessageType::Hello, "{\"v\":1,");
    case Malformed::HelloNotObject:
        return buildMessage(MessageType::Hello, "[1,2,3]");
    case Malformed::HelloEmpty:
        return buildMessage(MessageType::Hello);
    case Malformed::HelloVersion:
        return helloOfVersion(hello, 2);
    case Malformed::HelloTextVersion:
        return helloOfVersion(hello, QStringLiteral("1"));
    case Malformed::HelloPartialHeader:
        return buildMessage(MessageType::Hello, hello).first(3);
    case Malformed::HelloHeaderOnly:
        return buildMessage(MessageType::Hello, hello).first(kHeaderSize);
    case Malformed::HelloRandom:
    case Malformed::RandomBytes:
        return randomBytes(65'536);
    case Malformed::OversizedHeader:
        return header(MessageType::VideoFrame, kMaxPayload + 1);
    case Malformed::ShortFrame:
        return shortFrames();
    case Malformed::EmptyFrame:
        return frame(ptsUsec, false, {});
    case Malformed::GarbageFrame:
        return frame(ptsUsec, true, randomBytes(5000));
    case Malformed::TruncatedFrame:
        return frame(ptsUsec, false, accessUnit.first(accessUnit.size() / 2));
    case Malformed::GarbageConfig:
        return buildMessage(MessageType::VideoConfig, randomBytes(64));
    case Malformed::EmptyConfig:
        return buildMessage(MessageType::VideoConfig);
    case Malformed::BadStreamInfo:
        return buildMessage(MessageType::StreamInfo, "width=1280");
    case Malformed::AbsurdStreamInfo:
        return absurdStreamInfos();
    case Malformed::GarbageThumbnail:
        return buildMessage(MessageType::Thumbnail, randomBytes(20'000));
    case Malformed::UnknownType:
        return unknownTypes();
    case Malformed::SecondHello:
        return buildMessage(MessageType::Hello, hello);
    case Malformed::BigPing:
        return buildMessage(MessageType::Ping, randomBytes(1'048'576));
    case Malformed::CutMessage:
        return header(MessageType::VideoFrame, 1'048'576) + randomBytes(100);
    }
    return {};
}

} // namespace pevrix
