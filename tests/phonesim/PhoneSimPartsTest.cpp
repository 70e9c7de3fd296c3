#include "tests/support/PhoneProcess.h"
#include "tools/phonesim/AnnexB.h"
#include "tools/phonesim/FramePacer.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/Pattern.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace pevrix {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FramePacer, LateFramesDoNotShiftTheOnesAfterThem)
{
    FramePacer pacer(30);
    pacer.begin(1s);
    for (int frame = 0; frame < 30; ++frame) {
        EXPECT_EQ(pacer.skipLate(pacer.due() + 40ms), 0);
        EXPECT_EQ(pacer.take(), frame);
    }
    EXPECT_EQ(pacer.due(), 2s);
    EXPECT_EQ(pacer.timestamp(30), 1s);
    EXPECT_EQ(pacer.timestamp(1), 33'333us);
    // Ten days of it: exact, and far from an overflow.
    EXPECT_EQ(pacer.timestamp(30 * 864'000), 864'000s);
}

TEST(FramePacer, GivesUpFramesThatAreFarTooLate)
{
    FramePacer pacer(10);
    pacer.begin(0s);
    EXPECT_EQ(pacer.skipLate(500ms), 0);
    EXPECT_EQ(pacer.skipLate(501ms), 6) << "frame 6 is the first one not in the past";
    EXPECT_EQ(pacer.nextFrame(), 6);
    EXPECT_EQ(pacer.skipTo(300ms), 0) << "never goes back";
}

std::vector<std::vector<std::uint8_t>> units(const std::vector<std::uint8_t>& bytes)
{
    std::vector<std::vector<std::uint8_t>> result;
    for (const NalUnit& unit : splitNalUnits(bytes)) {
        result.emplace_back(unit.bytes.begin(), unit.bytes.end());
    }
    return result;
}

TEST(AnnexB, CutsAtStartCodesOfEitherLength)
{
    using Bytes = std::vector<std::uint8_t>;
    EXPECT_THAT(units({}), IsEmpty());
    EXPECT_THAT(units({1, 2, 3, 0, 0}), IsEmpty());
    EXPECT_THAT(units({9, 0, 0, 1}), ElementsAre(Bytes{0, 0, 1}));
    EXPECT_THAT(
        units({0, 0, 0, 1, 0x67, 7, 0, 0, 1, 0x68, 0, 0, 0, 1, 0x65, 5}),
        ElementsAre(Bytes{0, 0, 0, 1, 0x67, 7}, Bytes{0, 0, 1, 0x68}, Bytes{0, 0, 0, 1, 0x65, 5}));
}

TEST(AnnexB, FindsKeyframesAndTheirParameterSets)
{
    const std::vector<std::uint8_t> keyframe{0, 0, 0, 1, 0x67, 7, 0, 0, 0,    1,    0x68,
                                             8, 0, 0, 1, 0x06, 6, 0, 0, 0x01, 0x65, 5};
    EXPECT_TRUE(isKeyframe(keyframe));
    EXPECT_THAT(parameterSets(keyframe), ElementsAre(0, 0, 0, 1, 0x67, 7, 0, 0, 0, 1, 0x68, 8));
    const std::vector<std::uint8_t> other{0, 0, 1, 0x41, 5, 5};
    EXPECT_FALSE(isKeyframe(other));
    EXPECT_THAT(parameterSets(other), IsEmpty());
}

std::vector<std::uint8_t> drawn(int width, int height, int noise, std::int64_t number)
{
    // Exact sizes, so that a pixel outside is an error that the sanitizer sees.
    const auto luma = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::vector<std::uint8_t> bytes(luma * 3 / 2);
    Pattern(width, height, noise)
        .draw(number, {bytes.data(), bytes.data() + luma, bytes.data() + luma + luma / 4, width,
                       width / 2, width, height});
    return bytes;
}

TEST(Pattern, IsAFunctionOfSizeAndFrameNumberThatChangesWithEveryFrame)
{
    for (const auto& [width, height] : {std::pair{64, 64}, {66, 100}, {360, 640}, {1280, 720}}) {
        for (const std::int64_t number : {0LL, 1LL, 599LL, 999'999LL, 123'456'789'012LL}) {
            const auto picture = drawn(width, height, 0, number);
            EXPECT_EQ(picture, drawn(width, height, 0, number)) << width << " " << number;
            EXPECT_NE(picture, drawn(width, height, 0, number + 1)) << width << " " << number;
        }
    }
}

TEST(Pattern, NoiseChangesTheLumaByItsLevelAtMost)
{
    const auto clean = drawn(320, 240, 0, 7);
    const auto noisy = drawn(320, 240, 3, 7);
    const std::size_t luma = 320 * 240;
    std::array<int, 7> counts{};
    for (std::size_t i = 0; i < luma; ++i) {
        const int difference = noisy[i] - clean[i];
        ASSERT_LE(std::abs(difference), 3);
        ++counts[static_cast<std::size_t>(difference + 3)];
    }
    EXPECT_GT(*std::ranges::min_element(counts), static_cast<int>(luma) / 10);
    EXPECT_TRUE(std::equal(clean.begin() + luma, clean.end(), noisy.begin() + luma));
}

TEST(Options, RefusesWhatMakesNoSense)
{
    const char* cases[] = {
        "--port 0",
        "--port 65536",
        "--fps 30.5",
        "--size 1280",
        "--size 1281x720",
        "--size 99999x99999",
        "--size -2x720",
        "--duration nan",
        "--duration -1",
        "--leave quickly",
        "--malformed politely",
        "--stall-for 1",
        "--resize-after 1",
        "--resize-to 640x360",
        "--token a --token-file b",
        "--uri pevrix://elsewhere",
        "--uri pevrix://pair?v=1&pc=A&t=B",
        "--uri pevrix://pair?v=1&pc=A&t=B&h=10.0.0.1:1 --host 10.0.0.2",
        "--input a.mp4 --size 640x360",
        "--phones 2",
        "--usbmux --token a",
        "--usbmux --phones 0",
        "--usbmux --phones 2 --dump a.h264",
        "--usbmux --attach-again-after 1",
        "--usbmux --daemon-returns-after 1",
        "--no-such-option",
        "stray",
    };
    for (const char* arguments : cases) {
        const ParsedOptions parsed = parseOptions(QStringList(u"phonesim"_s) + words(arguments));
        EXPECT_FALSE(parsed.options) << arguments;
        EXPECT_FALSE(parsed.text.isEmpty()) << arguments;
    }
}

TEST(Options, TakesTokenAndEndpointsFromThePairingUri)
{
    const ParsedOptions parsed =
        parseOptions(QStringList(u"phonesim"_s) +
                     words("--uri pevrix://pair?v=1&pc=A%20B&t=Bm4R&h=10.0.0.1:8788,10.0.0.2:9"));
    ASSERT_TRUE(parsed.options) << qPrintable(parsed.text);
    EXPECT_EQ(parsed.options->token, u"Bm4R"_s);
    ASSERT_EQ(parsed.options->endpoints.size(), 2);
    EXPECT_EQ(parsed.options->endpoints[1].host, u"10.0.0.2"_s);
    EXPECT_EQ(parsed.options->endpoints[1].port, 9);
}

} // namespace

} // namespace pevrix
