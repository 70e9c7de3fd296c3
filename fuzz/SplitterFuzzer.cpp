// Whatever the bytes and however they are cut up, the splitter must hand out the messages that a
// plain reading of the whole stream finds, and hold no more memory than the bytes justify.
#include "phone/MessageSplitter.h"
#include "phone/Protocol.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace pevrix;

namespace {

void require(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

struct Stream
{
    std::vector<Message> messages;
    bool intact = true;
};

// The format read as naively as can be; the splitter is measured against it.
Stream readWhole(QByteArrayView bytes)
{
    Stream stream;
    while (bytes.size() >= kHeaderSize) {
        const auto header = decodeHeader(std::span<const char, kHeaderSize>(bytes.data(), 6));
        if (header.length > kMaxPayload) {
            stream.intact = false;
            break;
        }
        if (bytes.size() - kHeaderSize < qsizetype{header.length}) {
            break;
        }
        const QByteArrayView payload = bytes.sliced(kHeaderSize, header.length);
        bytes = bytes.sliced(kHeaderSize + payload.size());
        Message message{header.type, header.flags, {}, payload.toByteArray()};
        if (header.type == MessageType::VideoFrame && payload.size() >= kTimestampSize) {
            message.timestampUsec =
                decodeTimestamp(std::span<const char, kTimestampSize>(payload.data(), 8));
            message.payload = payload.sliced(kTimestampSize).toByteArray();
        }
        stream.messages.push_back(std::move(message));
    }
    return stream;
}

} // namespace

// The first byte seeds the cuts, the rest is the stream.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    std::uint32_t random = data[0];
    QByteArrayView rest(data + 1, static_cast<qsizetype>(size - 1));
    const Stream expected = readWhole(rest);

    MessageSplitter splitter;
    std::size_t received = 0;
    bool intact = true;
    while (!rest.isEmpty()) {
        random = random * 1664525U + 1013904223U;
        const qsizetype count = std::min<qsizetype>(rest.size(), 1 + (random >> 24) % 40);
        intact = splitter.feed(rest.first(count), [&](const Message& message) {
            require(received < expected.messages.size());
            require(message == expected.messages[received]);
            require(message.payload.capacity() <= std::max<qsizetype>(64, message.payload.size()));
            ++received;
        });
        rest = rest.sliced(count);
        require(splitter.writable().empty() == !intact);
        // Nothing is set aside for bytes that a header only announces.
        require(splitter.writable().size() <= 64 * 1024 + 4 * size);
    }
    require(received == expected.messages.size());
    require(intact == expected.intact);
    return 0;
}
