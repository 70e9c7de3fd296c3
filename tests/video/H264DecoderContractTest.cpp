// What every back end of the decoder promises. The expected pictures were decoded and converted by
// independent programs: tests/data/make-fixtures.
#include "tests/video/DecoderTraits.h"
#include "tools/doubles/AnnexB.h"
#include "video/H264Decoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <fstream>
#include <iterator>
#include <ostream>
#include <random>
#include <string>

namespace pevrix {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Picture
{
    int width = 0;
    int height = 0;
    std::uint32_t crc = 0;
    std::int64_t ptsUsec = 0;

    bool operator==(const Picture&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Picture& picture)
    {
        return out << picture.width << " x " << picture.height << " at " << picture.ptsUsec
                   << " us, CRC " << std::hex << picture.crc << std::dec;
    }
};

std::uint32_t crc32(std::span<const std::uint8_t> bytes)
{
    static const auto table = [] {
        std::array<std::uint32_t, 256> entries{};
        for (std::uint32_t i = 0; i < 256; ++i) {
            entries[i] = i;
            for (int bit = 0; bit < 8; ++bit) {
                entries[i] = entries[i] >> 1 ^ ((entries[i] & 1) != 0 ? 0xedb88320U : 0U);
            }
        }
        return entries;
    }();
    std::uint32_t crc = ~0U;
    for (const std::uint8_t byte : bytes) {
        crc = crc >> 8 ^ table[(crc ^ byte) & 255];
    }
    return ~crc;
}

constexpr std::int64_t timeOf(std::size_t index)
{
    return 123456 + static_cast<std::int64_t>(index) * 33333;
}

// A stream of tests/data with the picture of each access unit, in order.
struct Stream
{
    Bytes bytes;
    std::vector<AccessUnit> units;
    std::vector<Picture> pictures;

    explicit Stream(const std::string& name)
    {
        const std::string path = std::string(PEVRIX_TEST_DATA) + "/" + name;
        std::ifstream file(path + ".h264", std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
        units = splitAccessUnits(bytes);
        std::ifstream frames(path + ".frames");
        Picture picture;
        while (frames >> std::dec >> picture.width >> picture.height >> std::hex >> picture.crc) {
            picture.ptsUsec = timeOf(pictures.size());
            pictures.push_back(picture);
        }
    }

    std::size_t nextKeyframe(std::size_t index) const
    {
        while (!units[index].keyframe) {
            ++index;
        }
        return index;
    }
};

class H264DecoderContract : public testing::Test
{
protected:
    std::vector<Picture> m_pictures;
    std::int64_t m_fedTime = 0;
    H264Decoder m_decoder{
        [this](const std::uint8_t* bgr, int width, int height, std::int64_t ptsUsec) {
            const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
            m_pictures.push_back({width, height, crc32({bgr, 3 * size}),
                                  decoderTraits().keepsTimes ? ptsUsec : m_fedTime});
        }};

    void SetUp() override { ASSERT_TRUE(m_decoder.initialize(640, 480)); }

    std::vector<Picture> feed(std::span<const std::uint8_t> bytes, std::int64_t ptsUsec)
    {
        m_pictures.clear();
        m_fedTime = ptsUsec;
        m_decoder.feed(bytes, ptsUsec);
        return m_pictures;
    }

    // From `first` to the end, each access unit gives its own picture before the next goes in.
    void expectEveryPicture(const Stream& stream, std::size_t first)
    {
        ASSERT_EQ(stream.units.size(), stream.pictures.size());
        for (std::size_t i = first; i < stream.units.size(); ++i) {
            ASSERT_EQ(feed(stream.units[i].bytes, timeOf(i)), std::vector{stream.pictures[i]})
                << "access unit " << i;
        }
    }
};

class H264DecoderStreams : public H264DecoderContract,
                           public testing::WithParamInterface<const char*>
{};

TEST_P(H264DecoderStreams, GivesThePictureOfAnAccessUnitBeforeTheNextOneGoesIn)
{
    const Stream stream(GetParam());
    ASSERT_FALSE(stream.units.empty());
    if (GetParam() == std::string("crop") && !decoderTraits().crops) {
        GTEST_SKIP() << "the system's decoder gives whole macroblocks";
    }
    expectEveryPicture(stream, 0);
}

INSTANTIATE_TEST_SUITE_P(RealStreams, H264DecoderStreams,
                         testing::Values("live", "live-no-vui", "hd", "sizes", "crop"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST_F(H264DecoderContract, TakesParameterSetsAheadOfTheStream)
{
    const Stream stream("live");
    const Bytes startCodeOfSlice = {0, 0, 1, 0x65};
    for (std::size_t i = 0; i < stream.units.size(); ++i) {
        const auto unit = stream.units[i].bytes;
        const auto slice =
            std::search(unit.begin(), unit.end(), startCodeOfSlice.begin(), startCodeOfSlice.end());
        const auto parameterSets =
            slice == unit.end() ? 0U : static_cast<std::size_t>(slice - unit.begin());
        if (i == 0) {
            ASSERT_GT(parameterSets, 10U);
            ASSERT_TRUE(feed(unit.first(parameterSets), 0).empty());
        }
        ASSERT_EQ(feed(unit.subspan(parameterSets), timeOf(i)), std::vector{stream.pictures[i]});
    }
}

TEST_F(H264DecoderContract, DoesNothingWithoutInitialisationOrBytes)
{
    const Stream stream("live");
    EXPECT_TRUE(feed({}, 1).empty());
    m_decoder.reset();
    EXPECT_FALSE(m_decoder.initialized());
    EXPECT_TRUE(feed(stream.units[0].bytes, 1).empty());
    m_decoder.drain();
    m_decoder.reset();
    EXPECT_TRUE(m_pictures.empty());
}

TEST_F(H264DecoderContract, StartsAfreshWhenInitialisedAgain)
{
    const Stream stream("live");
    const std::size_t keyframe = stream.nextKeyframe(2);
    feed(stream.units[0].bytes, timeOf(0));
    ASSERT_TRUE(m_decoder.initialize(160, 96));
    EXPECT_TRUE(m_decoder.initialized());
    EXPECT_TRUE(feed(stream.units[1].bytes, timeOf(1)).empty()) << "its reference is gone";
    expectEveryPicture(stream, keyframe);
}

TEST_F(H264DecoderContract, DropsPicturesOtherThan8Bit420)
{
    for (const char* name : {"yuv444", "ten-bit"}) {
        const Stream stream(name);
        ASSERT_EQ(stream.units.size(), 3U);
        for (const AccessUnit& unit : stream.units) {
            EXPECT_EQ(feed(unit.bytes, 0).empty(), decoderTraits().dropsOtherFormats) << name;
        }
    }
    expectEveryPicture(Stream("live"), 0);
}

TEST_F(H264DecoderContract, ShowsNothingBrokenWhenItJoinsAnywhere)
{
    const Stream stream("live");
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        ASSERT_TRUE(m_decoder.initialize(160, 96));
        const std::size_t joined = random() % (stream.units.size() - 40);
        const auto unit = stream.units[joined].bytes;
        const std::size_t end = stream.nextKeyframe(joined + 1) + 3;
        const std::size_t cut = 1 + random() % (unit.size() - 1);
        EXPECT_TRUE(feed(unit.subspan(cut), timeOf(joined)).empty()) << joined << " from " << cut;
        for (std::size_t i = joined + 1; i < end; ++i) {
            const bool joinedPicture = i >= end - 3;
            ASSERT_EQ(feed(stream.units[i].bytes, timeOf(i)),
                      joinedPicture ? std::vector{stream.pictures[i]} : std::vector<Picture>{})
                << "access unit " << i << ", joined at " << joined;
        }
    }
}

// One of the ways in which an access unit gets damaged; `other` is some other unit.
Bytes damaged(std::span<const std::uint8_t> unit, std::span<const std::uint8_t> other,
              std::mt19937& random)
{
    Bytes bytes(unit.begin(), unit.end());
    switch (random() % 6) {
    case 0: // truncated
        bytes.resize(random() % bytes.size());
        break;
    case 1: // bits flipped
        for (auto flips = 1 + random() % 20; flips > 0; --flips) {
            bytes[random() % bytes.size()] ^= static_cast<std::uint8_t>(1U << random() % 8);
        }
        break;
    case 2: // headers and parameter sets damaged
        for (auto flips = 1 + random() % 4; flips > 0; --flips) {
            bytes[random() % std::min<std::size_t>(bytes.size(), 40)] =
                static_cast<std::uint8_t>(random());
        }
        break;
    case 3: // noise behind a slice's start code
        bytes.assign({0, 0, 1, static_cast<std::uint8_t>(random() % 2 == 0 ? 0x65 : 0x41)});
        std::generate_n(std::back_inserter(bytes), random() % 500,
                        [&] { return static_cast<std::uint8_t>(random()); });
        break;
    case 4: // out of order
        bytes.assign(other.begin(), other.end());
        break;
    default: // duplicated
        bytes.insert(bytes.end(), unit.begin(), unit.end());
        break;
    }
    return bytes;
}

TEST_F(H264DecoderContract, SurvivesDamageAndRecoversOnTheNextKeyframe)
{
    const Stream small("live");
    const Stream sizes("sizes");
    std::mt19937 random(1);
    for (std::size_t i = 0; i < 10000; ++i) {
        const Stream& stream = random() % 50 == 0 ? sizes : small;
        const auto unit = stream.units[i % stream.units.size()].bytes;
        const auto other = stream.units[random() % stream.units.size()].bytes;
        const Bytes bytes =
            random() % 4 == 0 ? Bytes(unit.begin(), unit.end()) : damaged(unit, other, random);
        m_decoder.feed(bytes, timeOf(i));
        m_pictures.clear();
    }
    expectEveryPicture(small, small.nextKeyframe(1));
}

// A sequence parameter set, baseline profile, level 6.2 and 16 reference frames.
class SequenceParameterSet
{
public:
    SequenceParameterSet(std::uint32_t widthMacroblocks, std::uint32_t heightMacroblocks)
    {
        for (const std::uint32_t field : {0U, 0U, 2U, 16U}) { // id, number bits, order, references
            exponentialGolomb(field);
        }
        bits(0, 1);
        exponentialGolomb(widthMacroblocks - 1);
        exponentialGolomb(heightMacroblocks - 1);
        bits(0b11001, 5); // frames only, direct inference, no crop, no VUI, the end
        bits(0, (8 - m_bitCount % 8) % 8);
    }
    const Bytes& bytes() const { return m_bytes; }

private:
    void bits(std::uint32_t value, unsigned count)
    {
        while (count-- > 0) {
            if (m_bitCount++ % 8 == 0) {
                m_bytes.push_back(0);
            }
            m_bytes.back() |=
                static_cast<std::uint8_t>((value >> count & 1) << (7 - (m_bitCount - 1) % 8));
        }
    }
    void exponentialGolomb(std::uint32_t value)
    {
        const auto length = static_cast<unsigned>(std::bit_width(value + 1));
        bits(0, length - 1);
        bits(value + 1, length);
    }

    Bytes m_bytes = {0, 0, 0, 1, 0x67, 66, 0xc0, 62};
    unsigned m_bitCount = 0;
};

TEST_F(H264DecoderContract, RefusesPicturesBeyondWhatPhonesSend)
{
    const Stream stream("live");
    const auto keyframe = stream.units[0].bytes;
    const Bytes nextNal = {0, 0, 0, 1, 0x68};
    const auto rest = std::search(keyframe.begin(), keyframe.end(), nextNal.begin(), nextNal.end());
    ASSERT_NE(rest, keyframe.end());
    const auto sizeOf = [&](std::uint32_t width, std::uint32_t height) {
        Bytes bytes = SequenceParameterSet(width, height).bytes();
        bytes.insert(bytes.end(), rest, keyframe.end());
        const auto pictures = feed(bytes, 0);
        return pictures.empty() ? std::pair(0, 0)
                                : std::pair(pictures[0].width, pictures[0].height);
    };
    EXPECT_EQ(sizeOf(1024, 1024), std::pair(0, 0));
    EXPECT_EQ(sizeOf(4096, 1024), std::pair(0, 0));
    EXPECT_EQ(sizeOf(257, 256), std::pair(0, 0));
    expectEveryPicture(stream, 0);
}

} // namespace
} // namespace pevrix
