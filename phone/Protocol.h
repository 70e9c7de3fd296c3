#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <span>

// The framed protocol that the phone app and the PC speak over one TCP byte stream, whether it
// runs over the local network or through a USB tunnel. Messages follow one another back to back:
//
//     0      1       2                       6                  6 + length
//     +------+-------+-----------------------+------------------+
//     | type | flags | length, little-endian | payload          |
//     +------+-------+-----------------------+------------------+
//      1 byte 1 byte  4 bytes, unsigned       length bytes
//
// Control payloads are one compact JSON object, media payloads are raw bytes. The payload of a
// video frame begins with its presentation time:
//
//     +---------------------------------------+------------------------------------+
//     | microseconds, 8 bytes, little-endian  | one H.264 access unit in Annex-B   |
//     +---------------------------------------+------------------------------------+
//
// Everything here is plain data, usable from any thread.
namespace pevrix {

// The port that phones try first; the PC falls back to any free one.
inline constexpr quint16 kDefaultPort = 8788;

inline constexpr int kProtocolVersion = 1;

inline constexpr qsizetype kHeaderSize = 6;

inline constexpr qsizetype kTimestampSize = 8;

// The largest payload that is accepted; a header that announces more ends the connection. It
// bounds what one connection can make us hold.
inline constexpr quint32 kMaxPayload = 16'777'216;

// Bit 0 of a video frame's flags. The PC itself always sends flags 0.
inline constexpr quint8 kKeyframeFlag = 0x01;

// Codes outside this list are legal on the wire and ignored.
enum class MessageType : quint8
{
    None = 0, // never sent

    // Phone to PC.
    Hello = 1,
    VideoConfig = 16, // SPS and PPS in Annex-B form
    VideoFrame = 17,
    StreamInfo = 18, // the geometry and rate that the phone is encoding
    Thumbnail = 19,  // one JPEG image
    Bye = 64,        // the payload is ignored

    // PC to phone.
    HelloReply = 2,
    Error = 3,         // the PC closes the connection right after it
    UsbHello = 4,      // first message of every USB tunnel
    Active = 32,       // whether the phone shall stream or hold
    StartRequest = 33, // follows an Active that says true

    // Either way.
    Ping = 48,
    Pong = 49, // carries a copy of the ping's payload
};

struct MessageHeader
{
    MessageType type = MessageType::None;
    quint8 flags = 0;
    quint32 length = 0; // payload bytes that follow

    bool operator==(const MessageHeader&) const = default;
};

[[nodiscard]] std::array<char, kHeaderSize> encodeHeader(const MessageHeader& header);
[[nodiscard]] MessageHeader decodeHeader(std::span<const char, kHeaderSize> bytes);

// A whole message. The payload must not be larger than kMaxPayload.
[[nodiscard]] QByteArray buildMessage(MessageType type, QByteArrayView payload = {},
                                      quint8 flags = 0);

// Header and presentation time of a video frame message; the access unit's bytes follow it. For
// senders that do not want to copy the access unit.
[[nodiscard]] std::array<char, kHeaderSize + kTimestampSize>
encodeVideoFrameHeader(qint64 ptsUsec, bool keyframe, qsizetype accessUnitSize);

// The time at the front of a video frame's payload. Times are unsigned on the wire; one beyond
// the signed range comes out negative.
[[nodiscard]] qint64 decodeTimestamp(std::span<const char, kTimestampSize> bytes);

// What the phone says about itself. Text that does not parse, or is no JSON object, reads as an
// empty object; a missing or mistyped key takes its default.
// Name, model and system are as plainText() makes them.
struct Hello
{
    int version = 0;
    QString token;
    QString deviceId;
    QString name;  // "Phone" by default
    QString model; // the marketing name when the phone knows it
    QString os;
};
[[nodiscard]] Hello parseHello(const QByteArray& payload);

struct StreamDescription
{
    int width = 1280;
    int height = 720;
    int fps = 30;

    bool operator==(const StreamDescription&) const = default;
};
[[nodiscard]] StreamDescription parseStreamInfo(const QByteArray& payload);

// Payloads of the PC's messages: compact JSON whose keys keep the order documented here.

// {"v","sessionId","active","request":{"codec","width","height","fps","bitrateKbps"}}
[[nodiscard]] QByteArray helloReplyPayload();
// {"code","message"}
[[nodiscard]] QByteArray errorPayload(const QString& code, const QString& message);
// {"token","pcName","transport"}
[[nodiscard]] QByteArray usbHelloPayload(const QString& token, const QString& pcName);
// {"active"}
[[nodiscard]] QByteArray activePayload(bool active);
// {"t"}: milliseconds of the PC's own monotonic clock
[[nodiscard]] QByteArray pingPayload(qint64 elapsedMs);

} // namespace pevrix
