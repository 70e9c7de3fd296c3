// What every back end of the recorder promises.
#include "tests/video/RecorderTraits.h"

#include <gtest/gtest.h>

#include <vector>

namespace pevrix {
namespace {

TEST(Mp4RecorderContract, AcceptsSidesFrom1To8192)
{
    const TemporaryFolder folder;
    const auto recorder = makeWorkingRecorder();
    constexpr auto kHuge = static_cast<std::uint32_t>(-1);
    for (const std::uint32_t side : {0U, 8193U, kHuge}) {
        EXPECT_FALSE(recorder->open(folder / "a.mp4", side, 48, 30)) << side;
        EXPECT_FALSE(recorder->open(folder / "a.mp4", 64, side, 30)) << side;
    }
    EXPECT_TRUE(folder.empty());
    for (const std::uint32_t side : {1U, 8192U}) {
        EXPECT_TRUE(recorder->open(folder / "a.mp4", side, 16, 30)) << side;
        recorder->close();
        EXPECT_TRUE(recorder->open(folder / "a.mp4", 16, side, 30)) << side;
        recorder->close();
        EXPECT_TRUE(folder.empty()) << "a file without a picture is none";
    }
}

TEST(Mp4RecorderContract, KnowsWhetherItRecords)
{
    const TemporaryFolder folder;
    const std::vector<std::uint8_t> picture(64 * 48 * 3, 100);
    const auto recorder = makeWorkingRecorder();
    const auto expectOpen = [&](bool open) {
        EXPECT_EQ(recorder->isOpen(), open);
        EXPECT_EQ(recorder->width(), open ? 64 : 0);
        EXPECT_EQ(recorder->height(), open ? 48 : 0);
    };
    expectOpen(false);
    recorder->writeFrame(picture.data());
    recorder->close();
    for (const char* name : {"first.mp4", "second.mp4"}) {
        ASSERT_TRUE(recorder->open(folder / name, 64, 48, 30));
        recorder->writeFrame(nullptr);
        recorder->writeFrame(picture.data());
        EXPECT_FALSE(recorder->open(folder / "other.mp4", 32, 32, 30));
        expectOpen(true);
        recorder->close();
        recorder->close();
        recorder->writeFrame(picture.data());
        expectOpen(false);
    }
    EXPECT_TRUE(std::filesystem::exists(folder / "second.mp4"));
    EXPECT_FALSE(std::filesystem::exists(folder / "other.mp4"));
}

TEST(Mp4RecorderContract, RefusesAFolderThatCannotBeWritten)
{
    const TemporaryFolder folder;
    Mp4Recorder recorder;
    EXPECT_FALSE(recorder.open(folder / "missing" / "a.mp4", 64, 48, 30));
    EXPECT_FALSE(recorder.isOpen());
    EXPECT_TRUE(folder.empty());
}

} // namespace
} // namespace pevrix
