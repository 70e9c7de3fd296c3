#include "phone/MessageSplitter.h"

#include "tests/phone/TestPhone.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace pevrix {
namespace {

using namespace Qt::StringLiterals;

std::vector<Message> split(MessageSplitter& splitter, QByteArrayView bytes)
{
    std::vector<Message> messages;
    splitter.feed(bytes, [&](Message message) { messages.push_back(std::move(message)); });
    return messages;
}

TEST(MessageSplitterTest, readsLiteralMessages)
{
    MessageSplitter splitter;
    const auto messages = split(splitter, "\x30\x00\x03\x00\x00\x00"
                                          "abc"                      // ping
                                          "\x40\x80\x00\x00\x00\x00" // bye
                                          "\x11\x01\x0a\x00\x00\x00" // key frame
                                          "\x01\x00\x00\x00\x00\x00\x00\x00"
                                          "\x65\x88"                 // at 1 us
                                          "\x11\x00\x08\x00\x00\x00" // empty
                                          "\xff\xff\xff\xff\xff\xff\xff\x7f"
                                          "\x11\x00\x07\x00\x00\x00"
                                          "1234567" // short
                                          "\xc8\x07\x01\x00\x00\x00"
                                          "\x00\x12\x00"_ba); // unknown
    ASSERT_EQ(messages.size(), 6U);
    using enum MessageType;
    EXPECT_TRUE((messages[0] == Message{Ping, 0, {}, "abc"}));
    EXPECT_TRUE((messages[1] == Message{Bye, 0x80, {}, {}}));
    EXPECT_TRUE((messages[2] == Message{VideoFrame, 1, 1, "\x65\x88"}));
    EXPECT_TRUE((messages[3] == Message{VideoFrame, 0, 0x7fffffffffffffff, {}}));
    EXPECT_TRUE((messages[4] == Message{VideoFrame, 0, {}, "1234567"}));
    EXPECT_TRUE((messages[5] == Message{MessageType{200}, 7, {}, QByteArray(1, '\0')}));
}

TEST(MessageSplitterTest, findsTheSameMessagesHoweverTheStreamIsCut)
{
    std::mt19937 random(1);
    QByteArray stream;
    for (int i = 0; i < 200; ++i) {
        const QByteArray body(static_cast<qsizetype>(random() % 700), static_cast<char>(i));
        stream += i % 5 == 0 ? buildMessage(MessageType::Ping, body) : frameMessage(i, body);
    }
    MessageSplitter whole;
    const std::vector<Message> expected = split(whole, stream);
    ASSERT_EQ(expected.size(), 200U);

    for (int round = 1; round <= 364; ++round) {
        MessageSplitter splitter;
        std::vector<Message> messages;
        for (QByteArrayView rest = stream; !rest.isEmpty();) {
            const qsizetype wanted =
                round <= 64 ? round : 1 + static_cast<qsizetype>(random() % (1U << (round % 13)));
            const qsizetype count = std::min(wanted, rest.size());
            std::ranges::move(split(splitter, rest.first(count)), std::back_inserter(messages));
            rest = rest.sliced(count);
        }
        ASSERT_TRUE(messages == expected) << "round " << round;
    }
}

TEST(MessageSplitterTest, takesTheLargestPayloadAndEndsAtALargerOne)
{
    MessageSplitter splitter;
    const QByteArray payload(qsizetype{kMaxPayload}, 'x');
    const auto messages = split(splitter, buildMessage(MessageType::Thumbnail, payload));
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].payload, payload);

    for (const QByteArray& length :
         {"\x01\x00\x00\x01"_ba, "\xff\xff\xff\x7f"_ba, "\xff\xff\xff\xff"_ba}) {
        MessageSplitter ended;
        const QByteArray stream = buildMessage(MessageType::Ping, "a") + QByteArray("\x30\0", 2) +
                                  length + buildMessage(MessageType::Ping, "b");
        EXPECT_EQ(split(ended, stream).size(), 1U);
        EXPECT_TRUE(ended.writable().empty());
        EXPECT_EQ(split(ended, buildMessage(MessageType::Ping, "c")).size(), 0U);
    }
}

} // namespace
} // namespace pevrix
