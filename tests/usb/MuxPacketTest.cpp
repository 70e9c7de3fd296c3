#include "usb/MuxPacket.h"

#include "usb/Plist.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

QByteArray packet(const QVariantMap& message)
{
    const QByteArray payload = buildPlist(message);
    return buildMuxHeader(payload.size(), 0) + payload;
}

QByteArray lengthOnly(std::uint32_t length)
{
    QByteArray header = buildMuxHeader(0, 0);
    for (int i = 0; i < 4; ++i) {
        header[i] = static_cast<char>(length >> (8 * i));
    }
    return header;
}

TEST(MuxPacket, HeaderIsFourLittleEndianWords)
{
    EXPECT_EQ(buildMuxHeader(0x01020304, 0xA1B2C3D4).toHex(), "14030201" // length, with the header
                                                              "01000000" // version
                                                              "08000000" // property list
                                                              "d4c3b2a1"); // tag
}

TEST(MuxPacket, AnImpossibleLengthClearsTheBufferAndAPossibleOneWaits)
{
    for (const std::uint32_t length : {0U, 15U, 4194305U, 0xFFFFFFFFU}) {
        QByteArray buffer = lengthOnly(length) + "and what followed";
        EXPECT_FALSE(takeMessage(buffer)) << length;
        EXPECT_TRUE(buffer.isEmpty()) << length;
    }
    QByteArray empty = lengthOnly(16) + "next";
    EXPECT_EQ(takeMessage(empty), QVariantMap());
    EXPECT_EQ(empty, "next");

    QByteArray longest = lengthOnly(4194304) + QByteArray(4194304 - 17, ' ');
    EXPECT_EQ(missingMuxBytes(longest), 1);
    EXPECT_FALSE(takeMessage(longest));
    longest += ' ';
    EXPECT_TRUE(takeMessage(longest));
    EXPECT_TRUE(longest.isEmpty());
}

// Half a million packets in one buffer: each must cost its own size, not that of the backlog.
TEST(MuxPacket, ABacklogOfPacketsIsTakenInOrder)
{
    constexpr int kPackets = 500'000;
    QByteArray buffer = packet({{u"Number"_s, 1}});
    buffer += lengthOnly(16).repeated(kPackets) + packet({{u"Number"_s, 2}});
    EXPECT_EQ(takeMessage(buffer)->value(u"Number"_s), 1);
    for (int i = 0; i < kPackets; ++i) {
        ASSERT_TRUE(takeMessage(buffer));
    }
    EXPECT_EQ(takeMessage(buffer)->value(u"Number"_s), 2);
    EXPECT_TRUE(buffer.isEmpty());
}

} // namespace
} // namespace pevrix
