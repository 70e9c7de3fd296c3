// Recordings that end before their time: keyframes, a full disk, a killed program.
#include "tests/video/FileProbe.h"
#include "tests/video/RecorderTraits.h"
#include "video/Mp4Recorder.h"
#include "video/Mp4Writer_ffmpeg.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <sstream>
#include <sys/resource.h>
#include <thread>

namespace pevrix {
namespace {

using namespace std::chrono_literals;

// Pictures of a moving pattern, straight into the writer, so that every run makes the same file.
class RecordedFile
{
public:
    RecordedFile(std::filesystem::path path, int picturesPerSecond)
        : m_interval(Mp4Writer::kTimeBase.den / picturesPerSecond)
        , m_writer(Mp4Writer::create(path, kWidth, kHeight, 30, {"libx264"}))
    {
        m_frame->format = AV_PIX_FMT_YUV420P;
        m_frame->width = kWidth;
        m_frame->height = kHeight;
        av_frame_get_buffer(m_frame.get(), 0);
    }

    // Stops at the first picture that cannot be written.
    bool write(int pictures)
    {
        bool written = m_writer != nullptr;
        for (int i = 0; i < pictures && written; ++i) {
            for (std::size_t plane = 0; plane < 3; ++plane) {
                const int rows = plane == 0 ? kHeight : kHeight / 2;
                std::uint8_t* data = m_frame->data[plane];
                for (int k = 0; k < rows * m_frame->linesize[plane]; ++k) {
                    data[k] = static_cast<std::uint8_t>(k * 7 + i * 13);
                }
            }
            m_frame->pts = i * m_interval;
            m_frame->duration = m_interval;
            written = m_writer->encode(*m_frame);
        }
        return written;
    }
    bool finish() { return m_writer->finish(); }

private:
    static constexpr int kWidth = 160;
    static constexpr int kHeight = 90;
    const std::int64_t m_interval;
    const FrameHandle m_frame{av_frame_alloc()};
    std::unique_ptr<Mp4Writer> m_writer;
};

TEST(Mp4Writer, StartsAKeyframeEverySecondWhateverThePictureRate)
{
    const TemporaryFolder folder;
    for (const int rate : {5, 60}) {
        RecordedFile file(folder / "a.mp4", rate);
        ASSERT_TRUE(file.write(2 * rate) && file.finish());
        std::istringstream packets(probe(folder / "a.mp4", "packet=pts_time,flags"));
        std::string line;
        double keyframe = -1;
        double time = -1;
        while (std::getline(packets, line)) {
            time = std::stod(line);
            keyframe = line.find(",K") != std::string::npos ? time : keyframe;
            ASSERT_LT(time - keyframe, 1) << "at " << rate << " pictures a second";
        }
        EXPECT_NEAR(time, 2 - 1.0 / rate, 0.001);
    }
}

// What the system has of a file by then is what is left when the program is killed.
TEST(Mp4Writer, LosesLessThanASecondWhenTheProgramIsKilled)
{
    const TemporaryFolder folder;
    for (const int pictures : {59, 85}) { // right before and in the middle of a second
        RecordedFile file(folder / "a.mp4", 30);
        ASSERT_TRUE(file.write(pictures));
        std::filesystem::copy_file(folder / "a.mp4", folder / "killed.mp4",
                                   std::filesystem::copy_options::overwrite_existing);
        EXPECT_GE(decodedPictures(folder / "killed.mp4"), pictures - 30);
    }
}

// No file of this process can grow beyond the limit, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

TEST(Mp4Writer, KeepsWhatFitsOnAFullDisk)
{
    constexpr int kPictures = 60;
    constexpr int kFragment = 15;
    const TemporaryFolder folder;
    const auto path = folder / "a.mp4";
    const auto record = [&] {
        RecordedFile file(path, 30);
        return file.write(kPictures) && file.finish();
    };
    ASSERT_TRUE(record());
    const auto whole = std::filesystem::file_size(path);
    EXPECT_EQ(decodedPictures(path), kPictures);
    // The last limits are within the index, which is all that does not fit then.
    for (const auto limit :
         {std::uintmax_t{20}, whole / 4, whole * 3 / 4, whole - 2000, whole - 1}) {
        std::filesystem::remove(path);
        {
            const FullDisk disk(limit);
            EXPECT_FALSE(record()) << limit;
        }
        const bool left = std::filesystem::exists(path);
        const std::size_t pictures = left ? decodedPictures(path) : 0;
        const double fitting = static_cast<double>(limit) / static_cast<double>(whole) * kPictures;
        EXPECT_GE(static_cast<double>(pictures), fitting - 2 * kFragment)
            << limit << " of " << whole;
        if (left) {
            EXPECT_EQ(outputOf("ffmpeg -v warning -i " + quoted(path) + " -f null - 2>&1"), "")
                << limit;
        }
    }
}

TEST(Mp4Recorder, EndsTheRecordingByItselfOnAFullDisk)
{
    const TemporaryFolder folder;
    std::mt19937 random(1);
    std::vector<std::uint8_t> picture(320 * 180 * 3);
    Mp4Recorder recorder;
    {
        const FullDisk disk(200'000);
        ASSERT_TRUE(recorder.open(folder / "a.mp4", 320, 180, 30));
        const auto limit = std::chrono::steady_clock::now() + 60s;
        while (recorder.isOpen() && std::chrono::steady_clock::now() < limit) {
            std::generate(picture.begin(), picture.end(), std::ref(random));
            recorder.writeFrame(picture.data());
            std::this_thread::sleep_for(10ms);
        }
        EXPECT_FALSE(recorder.isOpen());
        EXPECT_EQ(recorder.width(), 0);
        recorder.writeFrame(picture.data());
        EXPECT_FALSE(recorder.close());
    }
    ASSERT_TRUE(recorder.open(folder / "b.mp4", 320, 180, 30));
    recorder.writeFrame(picture.data());
    EXPECT_TRUE(recorder.close());
    EXPECT_EQ(decodedPictures(folder / "b.mp4"), 1);
}

} // namespace
} // namespace pevrix
