#include "phone/MessageSplitter.h"

#include <gtest/gtest.h>

#include <vector>

namespace pevrix {
namespace {

using namespace Qt::StringLiterals;

// The fuzzer's corpus is for streams that are cut up or damaged.
TEST(MessageSplitter, ReadsLiteralMessages)
{
    MessageSplitter splitter;
    std::vector<Message> messages;
    splitter.feed("\x30\x00\x03\x00\x00\x00"
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
                  "\x00\x12\x00"_ba, // unknown
                  [&](const Message& message) { messages.push_back(message); });
    ASSERT_EQ(messages.size(), 6U);
    using enum MessageType;
    EXPECT_TRUE((messages[0] == Message{Ping, 0, {}, "abc"}));
    EXPECT_TRUE((messages[1] == Message{Bye, 0x80, {}, {}}));
    EXPECT_TRUE((messages[2] == Message{VideoFrame, 1, 1, "\x65\x88"}));
    EXPECT_TRUE((messages[3] == Message{VideoFrame, 0, 0x7fffffffffffffff, {}}));
    EXPECT_TRUE((messages[4] == Message{VideoFrame, 0, {}, "1234567"}));
    EXPECT_TRUE((messages[5] == Message{MessageType{200}, 7, {}, QByteArray(1, '\0')}));
}

} // namespace
} // namespace pevrix
