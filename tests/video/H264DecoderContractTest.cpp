// What every back end of the decoder promises. The expected pictures were decoded and converted by
// independent programs: tests/data/make-fixtures.
#include "picture/PictureSize.h"
#include "tools/doubles/AnnexB.h"
#include "tools/doubles/CameraLog.h"
#include "tools/doubles/ThisProcess.h"
#include "video/H264Decoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ostream>
#include <random>
#include <string>

namespace pevrix {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Wine's decoder (seen in version 10) gives the times of pictures as 30 a second from the first
// one, and converts formats that Windows' own refuses.
const bool kIsWine = runsUnderWine();

struct Picture
{
    int width = 0;
    int height = 0;
    std::uint64_t hash = 0;
    std::int64_t ptsUsec = 0;

    bool operator==(const Picture&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Picture& picture)
    {
        return out << picture.width << " x " << picture.height << " at " << picture.ptsUsec
                   << " us, hash " << std::hex << picture.hash << std::dec;
    }
};

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
        while (frames >> std::dec >> picture.width >> picture.height >> std::hex >> picture.hash) {
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
            m_pictures.push_back({width, height, pictureHash(bgr, pictureBytes(width, height)),
                                  kIsWine ? m_fedTime : ptsUsec});
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
    if (GetParam() == std::string("crop") && !PEVRIX_DECODER_CROPS) {
        GTEST_SKIP() << "the system's decoder gives whole macroblocks";
    }
    expectEveryPicture(stream, 0);
}

INSTANTIATE_TEST_SUITE_P(RealStreams, H264DecoderStreams,
                         testing::Values("live", "live-no-vui", "full-range", "hd", "sizes",
                                         "crop"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST_F(H264DecoderContract, TakesParameterSetsByThemselvesAndNeverAgain)
{
    const Stream stream("live");
    const auto sets = parameterSets(stream.units[0].bytes);
    ASSERT_GT(sets.size(), 10U);
    ASSERT_TRUE(feed(sets, 0).empty());
    for (std::size_t i = 0; i < stream.units.size(); ++i) {
        const auto unit = stream.units[i].bytes;
        ASSERT_EQ(feed(unit.subspan(parameterSets(unit).size()), timeOf(i)),
                  std::vector{stream.pictures[i]});
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
            EXPECT_EQ(feed(unit.bytes, 0).empty(), !kIsWine) << name;
        }
    }
    expectEveryPicture(Stream("live"), 0);
}

TEST_F(H264DecoderContract, ShowsNothingBrokenWhenItJoinsAnywhere)
{
    const Stream stream("live");
    std::mt19937 random(1);
    for (int round = 0; round < 60; ++round) {
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

// What a broken phone makes of an access unit: bits flipped, most of all in the slice's header, cut
// off, sent twice. Its parameter sets stay whole: others may declare that pictures come out of
// order, and the decoder then holds them back for as long as the stream lasts.
Bytes damaged(std::span<const std::uint8_t> unit, std::mt19937& random)
{
    Bytes bytes(unit.begin(), unit.end());
    const std::size_t sets = parameterSets(unit).size();
    const std::size_t length = bytes.size() - sets;
    const std::size_t reach = random() % 2 == 0 ? std::min<std::size_t>(length, 20) : length;
    for (auto flips = random() % 20; flips > 0; --flips) {
        bytes[sets + random() % reach] ^= static_cast<std::uint8_t>(1U << random() % 8);
    }
    if (random() % 4 == 0) {
        bytes.insert(bytes.end(), unit.begin(), unit.end());
    } else if (random() % 4 == 0) {
        bytes.resize(random() % bytes.size());
    }
    return bytes;
}

TEST_F(H264DecoderContract, SurvivesDamageAndRecoversOnTheNextKeyframe)
{
    const Stream small("live");
    const Stream sizes("sizes");
    std::mt19937 random(1);
    std::size_t shown = 0;
    for (std::size_t i = 0; i < 10000; ++i) {
        const Stream& stream = random() % 50 == 0 ? sizes : small;
        const std::size_t place = random() % 6 == 0 ? random() : i; // out of order
        const auto unit = stream.units[place % stream.units.size()].bytes;
        shown += random() % 4 == 0 ? feed(unit, timeOf(i)).size()
                                   : feed(damaged(unit, random), timeOf(i)).size();
    }
    EXPECT_GT(shown, 1000U);
    expectEveryPicture(small, small.nextKeyframe(1));
}

TEST_F(H264DecoderContract, RefusesPicturesBeyondWhatPhonesSend)
{
    const Stream stream("live");
    const auto keyframe = stream.units[0].bytes;
    const Bytes nextNal = {0, 0, 0, 1, 0x68};
    const auto rest = std::search(keyframe.begin(), keyframe.end(), nextNal.begin(), nextNal.end());
    ASSERT_NE(rest, keyframe.end());
    const struct
    {
        const char* macroblocks;
        Bytes size; // of the sequence parameter set: what differs
        std::size_t pictures;
    } rows[] = {
        {"10 x 6", {0x28, 0xd9}, 1},
        {"257 x 256", {0x01, 0x01, 0x00, 0x80, 0x64}, 0},
        {"1024 x 1024", {0x00, 0x40, 0x00, 0x02, 0x00, 0x64}, 0},
        {"4096 x 1024", {0x00, 0x10, 0x00, 0x00, 0x20, 0x06, 0x40}, 0},
    };
    for (const auto& row : rows) {
        // Baseline profile, level 6.2, 16 reference frames.
        Bytes bytes = {0, 0, 0, 1, 0x67, 66, 0xc0, 62, 0xd8, 0x44};
        bytes.insert(bytes.end(), row.size.begin(), row.size.end());
        bytes.insert(bytes.end(), rest, keyframe.end());
        EXPECT_EQ(feed(bytes, 0).size(), row.pictures) << row.macroblocks;
    }
    expectEveryPicture(stream, 0);
}

} // namespace
} // namespace pevrix
