// Recordings as independent programs read them.
#include "tests/video/FileProbe.h"
#include "tests/video/RecorderTraits.h"
#include "video/Mp4RecorderPlatform_linux.h"
#include "video/PictureQueue.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <sstream>

namespace pevrix {

std::unique_ptr<Mp4Recorder> makeWorkingRecorder()
{
    return std::make_unique<Mp4Recorder>();
}

namespace {

using namespace std::chrono_literals;

// A clock that stands still until it is told to move.
struct HandMovedClock
{
    std::chrono::steady_clock::time_point time = std::chrono::steady_clock::now();

    Mp4Recorder::Platform platform()
    {
        Mp4Recorder::Platform platform;
        platform.now = [this] {
            return time;
        };
        return platform;
    }
};

TEST(Mp4Recorder, KeepsTheTimesOfPicturesAndDescribesTheFile)
{
    const TemporaryFolder folder;
    const auto path = folder / "a:b 100%.mp4";
    HandMovedClock clock;
    const std::vector<std::uint8_t> picture(640 * 360 * 3, 100);
    {
        Mp4Recorder recorder(clock.platform());
        ASSERT_TRUE(recorder.open(path, 640, 360, 0));
        for (const auto wait : {500ms, 40ms, 0ms, 1000ms, 62000ms}) {
            clock.time += wait;
            recorder.writeFrame(picture.data());
        }
    }
    EXPECT_EQ(probe(path, "stream=codec_name,profile,width,height,pix_fmt,color_range,color_space,"
                          "nb_frames"),
              "h264,Main,640,360,yuv420p,tv,smpte170m,5\n");
    EXPECT_EQ(probe(path, "packet=pts_time"),
              "0.000000\n0.040000\n0.040011\n1.040000\n63.040000\n");
    EXPECT_EQ(probe(path, "format=duration"), "63.073333\n");
    // An ordinary file: one index, behind the fragments that it was written in.
    std::ifstream file(path, std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(file), {});
    EXPECT_GT(content.rfind("moov"), content.rfind("moof"));
}

// Blue, green, red.
constexpr std::array<std::array<std::uint8_t, 3>, 8> kBars = {{{255, 255, 255},
                                                               {0, 255, 255},
                                                               {255, 255, 0},
                                                               {0, 255, 0},
                                                               {255, 0, 255},
                                                               {0, 0, 255},
                                                               {255, 0, 0},
                                                               {0, 0, 0}}};

const auto& barAt(int x, int width)
{
    return kBars[static_cast<std::size_t>(x * 8 / width)];
}

TEST(Mp4Recorder, KeepsColorsAndSizesIncludingOddOnes)
{
    const TemporaryFolder folder;
    const auto path = folder / "bars.mp4";
    for (const auto& [width, height] : {std::pair(320, 180), {321, 181}, {160, 99}, {1, 1}}) {
        std::vector<std::uint8_t> picture;
        for (int i = 0; i < width * height; ++i) {
            const auto& bar = barAt(i % width, width);
            picture.insert(picture.end(), bar.begin(), bar.end());
        }
        Mp4Recorder recorder;
        ASSERT_TRUE(recorder.open(path, static_cast<std::uint32_t>(width),
                                  static_cast<std::uint32_t>(height), 30));
        recorder.writeFrame(picture.data());
        recorder.close();

        const int fileWidth = width + width % 2;
        const int fileHeight = height + height % 2;
        const std::string decoded =
            outputOf("ffmpeg -v error -i " + quoted(path) +
                     " -sws_flags accurate_rnd+full_chroma_int -f rawvideo -pix_fmt bgr24 -");
        ASSERT_EQ(decoded.size(), fileWidth * fileHeight * 3) << width << " x " << height;
        // The middle of each bar, and the last column and row, which may be added ones.
        for (int x = width / 16; x < fileWidth; x += std::max(width / 8, 1)) {
            for (const int y : {0, height / 2, fileHeight - 1}) {
                const auto pixel = static_cast<std::size_t>((y * fileWidth + x) * 3);
                for (std::size_t channel = 0; channel < 3; ++channel) {
                    EXPECT_NEAR(static_cast<std::uint8_t>(decoded[pixel + channel]),
                                barAt(std::min(x, width - 1), width)[channel], 6)
                        << width << " x " << height << " at " << x << ", " << y;
                }
            }
        }
    }
}

TEST(Mp4Recorder, DropsTheOldestWaitingPicturesOfASlowEncoder)
{
    const TemporaryFolder folder;
    HandMovedClock clock;
    Mp4Recorder recorder(clock.platform());
    const std::vector<std::uint8_t> picture(1920 * 1080 * 3, 100);
    ASSERT_TRUE(recorder.open(folder / "a.mp4", 1920, 1080, 30));
    for (int i = 0; i < 100; ++i) {
        clock.time += 100ms;
        recorder.writeFrame(picture.data());
    }
    recorder.close();
    EXPECT_EQ(decodedPictures(folder / "a.mp4") + recorder.droppedPictures(), 100);
    // What waited at the end is there, without a gap.
    std::istringstream packets(probe(folder / "a.mp4", "packet=pts_time"));
    const std::vector<double> times(std::istream_iterator<double>(packets), {});
    ASSERT_GE(times.size(), 8);
    EXPECT_NEAR(times.back() - times[times.size() - 8], 0.7, 0.001);
}

TEST(PictureQueue, IsBoundedAndRecyclesMemory)
{
    PictureQueue<std::unique_ptr<int>> queue(2);
    int made = 0;
    const auto add = [&](int value) {
        auto picture = queue.take();
        if (picture == nullptr) {
            picture = std::make_unique<int>();
            ++made;
        }
        *picture = value;
        queue.push(std::move(picture));
    };
    std::unique_ptr<int> taken;
    for (int i = 1; i <= 100; ++i) {
        add(2 * i);
        add(2 * i + 1);
        if (i > 1) {
            EXPECT_EQ(queue.dropped(), i - 1);
        }
        ASSERT_TRUE(queue.exchange(taken));
        EXPECT_EQ(*taken, 2 * i);
    }
    EXPECT_LE(made, 4);
    queue.close();
    ASSERT_TRUE(queue.exchange(taken));
    EXPECT_EQ(*taken, 201);
    EXPECT_FALSE(queue.exchange(taken));
}

TEST(Mp4Recorder, TakesTheFirstEncoderThatWorks)
{
    const TemporaryFolder folder;
    Mp4Recorder::Platform platform;
    const std::vector<std::string> known = platform.encoders;
    platform.encoders = {"none of this name", "h264_nvenc"}; // known to the library, no hardware
    EXPECT_FALSE(Mp4Recorder(platform).open(folder / "a.mp4", 64, 48, 30));
    EXPECT_TRUE(folder.empty());
    platform.encoders.insert(platform.encoders.end(), known.begin(), known.end());
    EXPECT_TRUE(Mp4Recorder(platform).open(folder / "a.mp4", 64, 48, 30));
}

} // namespace
} // namespace pevrix
