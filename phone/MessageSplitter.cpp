#include "phone/MessageSplitter.h"

#include <new>

namespace pevrix {

namespace {

// Payloads up to this size get their memory at once: nearly every video frame, and little enough
// that headers which announce much and deliver nothing cost nothing.
constexpr qsizetype kFirstAllocation = qsizetype{64} * 1024;

// A larger payload's memory grows by this factor whenever it is full, so that at most a third more
// bytes than it has are moved again.
constexpr qsizetype kGrowthFactor = 4;

} // namespace

std::span<char> MessageSplitter::writable()
{
    if (m_oversized) {
        return {};
    }
    if (m_headFilled < m_headSize) {
        return std::span(m_head).subspan(static_cast<std::size_t>(m_headFilled),
                                         static_cast<std::size_t>(m_headSize - m_headFilled));
    }
    QByteArray& payload = m_message.payload;
    if (m_payloadFilled == payload.size()) {
        try {
            growPayload();
        } catch (const std::bad_alloc&) { // one peer's message must not end the program
            m_oversized = true;
            return {};
        }
    }
    return {payload.data() + m_payloadFilled,
            static_cast<std::size_t>(payload.size() - m_payloadFilled)};
}

MessageSplitter::Result MessageSplitter::commit(qsizetype count)
{
    if (m_oversized) {
        return Result::Oversized;
    }
    if (m_headFilled < m_headSize) {
        m_headFilled += count;
        return m_headFilled < m_headSize ? Result::NeedMore : finishHead();
    }
    m_payloadFilled += count;
    return m_payloadFilled < m_payloadSize ? Result::NeedMore : finishMessage();
}

MessageSplitter::Result MessageSplitter::finishHead()
{
    const std::span head(m_head);
    if (m_headSize == kHeaderSize) {
        const MessageHeader header = decodeHeader(head.first<kHeaderSize>());
        if (header.length > kMaxPayload) {
            m_oversized = true;
            return Result::Oversized;
        }
        m_message = {
            .type = header.type, .flags = header.flags, .timestampUsec = {}, .payload = {}};
        m_payloadSize = header.length;
        if (header.type == MessageType::VideoFrame && m_payloadSize >= kTimestampSize) {
            m_payloadSize -= kTimestampSize;
            m_headSize += kTimestampSize;
            return Result::NeedMore;
        }
    } else {
        m_message.timestampUsec = decodeTimestamp(head.last<kTimestampSize>());
    }
    return m_payloadSize > 0 ? Result::NeedMore : finishMessage();
}

MessageSplitter::Result MessageSplitter::finishMessage()
{
    m_headSize = kHeaderSize;
    m_headFilled = 0;
    m_payloadFilled = 0;
    return Result::Message;
}

void MessageSplitter::growPayload()
{
    QByteArray& payload = m_message.payload;
    if (payload.isEmpty()) {
        payload = QByteArray(std::min(m_payloadSize, kFirstAllocation), Qt::Uninitialized);
        return;
    }
    // reserve() first: resize() alone rounds the allocation up to a power of two.
    const qsizetype size = std::min(m_payloadSize, payload.size() * kGrowthFactor);
    payload.reserve(size);
    payload.resize(size);
}

} // namespace pevrix
