#pragma once

#include "phone/Protocol.h"

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

namespace pevrix {

// One received message.
struct Message
{
    MessageType type = MessageType::None;
    quint8 flags = 0;
    // The presentation time in microseconds, taken off the front of a video frame. Absent in
    // other messages, and in a video frame that is too short to hold one.
    std::optional<qint64> timestampUsec;
    QByteArray payload; // of a video frame with a timestamp: the access unit alone

    bool operator==(const Message&) const = default;
};

// Cuts a received byte stream into messages. The caller reads from its socket straight into the
// memory that writable() offers, so a payload is written once, into the very array that the
// message carries away. What is allocated grows with the bytes that really arrived, not with the
// length that a header announces. Pure code, for one stream, used from one thread.
class MessageSplitter
{
public:
    enum class Result
    {
        NeedMore,
        Message,   // take() has it
        Oversized, // a header announced more than kMaxPayload, or than there is memory for: the
                   // stream is at its end
    };

    // Where the next bytes of the stream go, and at most how many. Never reaches past the end of
    // a message, and is empty only once the stream was Oversized. Valid until the next call.
    [[nodiscard]] std::span<char> writable();

    // Says that the first count bytes of writable() were filled.
    [[nodiscard]] Result commit(qsizetype count);

    // The payload memory of the message that is coming in.
    [[nodiscard]] qsizetype heldBytes() const { return m_message.payload.capacity(); }

    // The message that commit() announced, once.
    [[nodiscard]] Message take() { return std::exchange(m_message, {}); }

    // For streams that are in memory already: cuts bytes up and hands each message to onMessage.
    // False once the stream was Oversized; the bytes after that header are not looked at.
    template <typename OnMessage>
    bool feed(QByteArrayView bytes, OnMessage&& onMessage);

private:
    Result finishHead();
    Result finishMessage();
    void growPayload();

    // Header, and behind it the presentation time of a video frame.
    std::array<char, kHeaderSize + kTimestampSize> m_head{};
    qsizetype m_headSize = kHeaderSize; // grows once the header says that a time follows
    qsizetype m_headFilled = 0;
    qsizetype m_payloadSize = 0; // without the presentation time
    qsizetype m_payloadFilled = 0;
    bool m_oversized = false;
    Message m_message; // the one being received, then the one to take
};

template <typename OnMessage>
bool MessageSplitter::feed(QByteArrayView bytes, OnMessage&& onMessage)
{
    while (!bytes.isEmpty() && !m_oversized) {
        const std::span<char> target = writable();
        const qsizetype count = std::min<qsizetype>(bytes.size(), std::ssize(target));
        std::copy_n(bytes.data(), count, target.data());
        bytes = bytes.sliced(count);
        if (commit(count) == Result::Message) {
            onMessage(take());
        }
    }
    return !m_oversized;
}

} // namespace pevrix
