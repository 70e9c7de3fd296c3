// Recordings as independent programs read them.
#include "tests/video/RecorderTraits.h"
#include "video/Mp4RecorderPlatform_ffmpeg.h"
#include "video/Mp4Writer_ffmpeg.h"
#include "video/PictureQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pevrix {

std::unique_ptr<Mp4Recorder> makeWorkingRecorder()
{
    return std::make_unique<Mp4Recorder>();
}

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

struct PipeClose
{
    void operator()(FILE* pipe) const { pclose(pipe); }
};
using Pipe = std::unique_ptr<FILE, PipeClose>;

// What a program prints.
std::string outputOf(const std::string& command)
{
    const Pipe pipe(popen(command.c_str(), "r"));
    std::string output;
    std::array<char, 65536> part{};
    while (const std::size_t size = fread(part.data(), 1, part.size(), pipe.get())) {
        output.append(part.data(), size);
    }
    return output;
}

std::string quoted(const std::filesystem::path& path)
{
    return "'" + path.string() + "'";
}

// One line per stream or packet, fields separated by commas.
std::string probe(const std::filesystem::path& path, const std::string& entries)
{
    return outputOf("ffprobe -v error -count_frames -of csv=p=0 -show_entries " + entries + " " +
                    quoted(path));
}

std::size_t decodedPictures(const std::filesystem::path& path)
{
    return std::strtoul(probe(path, "stream=nb_read_frames").c_str(), nullptr, 10);
}

std::vector<std::string> topLevelBoxes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> names;
    std::array<char, 8> head{};
    while (file.read(head.data(), head.size())) {
        std::uint32_t size = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            size = size << 8 | static_cast<std::uint8_t>(head[i]);
        }
        names.emplace_back(head.data() + 4, 4);
        file.seekg(static_cast<std::streamoff>(size) - 8, std::ios::cur);
    }
    return names;
}

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
    EXPECT_THAT(topLevelBoxes(path), ElementsAre("ftyp", "free", "mdat", "moov"));
}

struct Color
{
    std::uint8_t blue, green, red;
};
constexpr std::array<Color, 8> kBars = {{{255, 255, 255},
                                         {0, 255, 255},
                                         {255, 255, 0},
                                         {0, 255, 0},
                                         {255, 0, 255},
                                         {0, 0, 255},
                                         {255, 0, 0},
                                         {0, 0, 0}}};

const Color& barAt(int x, int width)
{
    return kBars[static_cast<std::size_t>(x * 8 / width)];
}

TEST(Mp4Recorder, KeepsColorsAndSizesIncludingOddOnes)
{
    const TemporaryFolder folder;
    const std::array sizes = {std::pair(320, 180), std::pair(321, 181), std::pair(160, 99),
                              std::pair(1, 1)};
    for (const auto& [width, height] : sizes) {
        const auto path = folder / "bars.mp4";
        std::vector<std::uint8_t> picture;
        for (int i = 0; i < width * height; ++i) {
            const Color& bar = barAt(i % width, width);
            picture.insert(picture.end(), {bar.blue, bar.green, bar.red});
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
                const Color& bar = barAt(std::min(x, width - 1), width);
                const std::array expected = {bar.blue, bar.green, bar.red};
                for (int channel = 0; channel < 3; ++channel) {
                    const auto index = static_cast<std::size_t>((y * fileWidth + x) * 3 + channel);
                    EXPECT_NEAR(static_cast<std::uint8_t>(decoded[index]),
                                expected[static_cast<std::size_t>(channel)], 6)
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

    // Stops at the first picture that cannot be written; true when the file is complete.
    bool write(int pictures)
    {
        for (int i = 0; i < pictures && m_writer != nullptr; ++i) {
            for (std::size_t plane = 0; plane < 3; ++plane) {
                const int rows = plane == 0 ? kHeight : kHeight / 2;
                std::uint8_t* data = m_frame->data[plane];
                for (int k = 0; k < rows * m_frame->linesize[plane]; ++k) {
                    data[k] = static_cast<std::uint8_t>(k * 7 + i * 13);
                }
            }
            m_frame->pts = i * m_interval;
            m_frame->duration = m_interval;
            if (!m_writer->encode(*m_frame)) {
                return false;
            }
        }
        return m_writer != nullptr && m_writer->finish();
    }

private:
    static constexpr int kWidth = 320;
    static constexpr int kHeight = 180;
    const std::int64_t m_interval;
    const FrameHandle m_frame{av_frame_alloc()};
    std::unique_ptr<Mp4Writer> m_writer;
};

TEST(Mp4Writer, StartsAKeyframeEverySecondWhateverThePictureRate)
{
    const TemporaryFolder folder;
    for (const int rate : {5, 30, 60}) {
        ASSERT_TRUE(RecordedFile(folder / "a.mp4", rate).write(3 * rate));
        std::istringstream flags(probe(folder / "a.mp4", "packet=flags"));
        std::string line;
        int sinceKeyframe = rate;
        while (std::getline(flags, line)) {
            sinceKeyframe = line.starts_with("K") ? 1 : sinceKeyframe + 1;
            ASSERT_LE(sinceKeyframe, rate);
        }
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
    ASSERT_TRUE(RecordedFile(path, 30).write(kPictures));
    const auto whole = std::filesystem::file_size(path);
    EXPECT_EQ(decodedPictures(path), kPictures);
    // The last limits are within the index, which is all that does not fit then.
    for (const auto limit : {std::uintmax_t{20}, std::uintmax_t{1000}, whole / 4, whole / 2,
                             whole * 3 / 4, whole - 2000, whole - 500, whole - 1}) {
        std::filesystem::remove(path);
        {
            const FullDisk disk(limit);
            EXPECT_FALSE(RecordedFile(path, 30).write(kPictures)) << limit;
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
    }
    ASSERT_TRUE(recorder.open(folder / "b.mp4", 320, 180, 30));
    recorder.writeFrame(picture.data());
    recorder.close();
    EXPECT_EQ(decodedPictures(folder / "b.mp4"), 1);
}

TEST(Mp4Recorder, LosesLessThanASecondWhenKilled)
{
    const TemporaryFolder folder;
    const auto path = folder / "killed.mp4";
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        const char* program = PEVRIX_BIN_DIR "/record_until_killed";
        execl(program, program, path.c_str(), nullptr);
        _exit(127);
    }
    close(ends[1]);
    double recorded = 0;
    {
        const std::unique_ptr<FILE, int (*)(FILE*)> output(fdopen(ends[0], "r"), fclose);
        while (recorded < 5 && std::fscanf(output.get(), "%lf", &recorded) == 1) {
        }
        kill(child, SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
    const std::string times = probe(path, "frame=pts_time");
    ASSERT_GE(times.size(), 2);
    const double last = std::atof(times.c_str() + times.rfind('\n', times.size() - 2) + 1);
    EXPECT_GE(last, recorded - 1);
    EXPECT_GE(decodedPictures(path), 60); // that is, no great gaps before
}

} // namespace
} // namespace pevrix
