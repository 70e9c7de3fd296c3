// What recording costs: on the thread that has the pictures, per picture, beside a plain copy of
// its bytes; and in all, beside the ffmpeg program, which gets the same pictures from a file and
// the same encoder settings, with its start, measured with one picture, taken off. Ratios are
// medians over the rounds. Pictures come at 30 a second, as they do in use; those that a busy
// machine drops are left out of the encoder's average.
#include "bench/FfmpegPeer.h"
#include "bench/VideoBench.h"
#include "picture/PictureSize.h"
#include "video/Mp4RecorderPlatform_linux.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

// Of the thread that it belongs to. FFmpeg and libyuv do not allocate by operator new.
thread_local long allocations = 0;

} // namespace

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

void* malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    ++allocations;
    return __libc_realloc(memory, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
{
    ++allocations;
    *memory = __libc_memalign(alignment, size);
    return *memory != nullptr ? 0 : ENOMEM;
}
}

using namespace pevrix;

namespace {

constexpr int kRounds = 5;
constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kPictures = 45;
constexpr std::chrono::microseconds kPictureTime(33'333);
constexpr std::chrono::milliseconds kPause(80);
constexpr int kBurst = 12; // fills the queue, which has all the memory then that it may ask for

std::vector<std::uint8_t> readFile(const std::string& path)
{
    std::vector<std::uint8_t> bytes(std::filesystem::file_size(path));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

struct Cost
{
    std::vector<double> writeFrame; // seconds per picture, by the clock of the calling thread
    std::vector<double> copy;
    std::vector<double> recording; // processor time per picture that is in the file
    std::vector<double> ffmpeg;
    long allocations = 0;
    std::uint64_t dropped = 0;
};

double threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void record(const std::string& path, const std::vector<std::uint8_t>& pictures, Cost& cost)
{
    const std::size_t size = pictureBytes(kWidth, kHeight);
    std::vector<std::uint8_t> copy(size);
    double inWriteFrame = 0;
    double inCopy = 0;
    const auto start = bench::cpuTime();
    std::chrono::steady_clock::time_point now;
    Mp4Recorder::Platform platform;
    platform.now = [&now] {
        return now;
    };
    Mp4Recorder recorder(platform);
    if (!recorder.open(path, kWidth, kHeight, 30)) {
        std::fprintf(stderr, "cannot record to %s\n", path.c_str());
        std::exit(1);
    }
    for (int i = 0; i < kBurst; ++i) {
        now += kPictureTime;
        recorder.writeFrame(pictures.data());
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const std::uint64_t droppedOfBurst = recorder.droppedPictures();
    for (int i = 0; i < kPictures; ++i) {
        const std::uint8_t* picture = pictures.data() + static_cast<std::size_t>(i) * size;
        now += kPictureTime;
        const long allocationsBefore = allocations;
        const double before = threadTime();
        recorder.writeFrame(picture);
        const double between = threadTime();
        std::memcpy(copy.data(), picture, size);
        inCopy += threadTime() - between;
        inWriteFrame += between - before;
        cost.allocations += allocations - allocationsBefore;
        std::this_thread::sleep_for(kPause);
    }
    recorder.close();
    const double all = (bench::cpuTime() - start).count() - inCopy;
    const std::uint64_t dropped = recorder.droppedPictures();
    cost.dropped += dropped - droppedOfBurst;
    cost.writeFrame.push_back(inWriteFrame / kPictures);
    cost.copy.push_back(inCopy / kPictures);
    cost.recording.push_back(all / static_cast<double>(kBurst + kPictures - dropped));
}

double ffmpegRecord(const std::string& raw, const std::string& path, int pictures)
{
    const std::string size = std::to_string(kWidth) + "x" + std::to_string(kHeight);
    return bench::runFfmpeg({"-f",
                             "rawvideo",
                             "-pix_fmt",
                             "bgr24",
                             "-s",
                             size,
                             "-framerate",
                             "30",
                             "-i",
                             raw,
                             "-frames:v",
                             std::to_string(pictures),
                             "-c:v",
                             "libx264",
                             "-threads",
                             "1",
                             "-filter_threads",
                             "1",
                             "-preset",
                             "superfast",
                             "-profile:v",
                             "main",
                             "-bf",
                             "0",
                             "-g",
                             "30",
                             "-b:v",
                             "6M",
                             "-pix_fmt",
                             "yuv420p",
                             path});
}

} // namespace

int main()
{
    std::string folder = (std::filesystem::temp_directory_path() / "record-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        std::perror("temporary folder");
        return 1;
    }
    const std::string raw = folder + "/pictures.raw";
    const std::string file = folder + "/recording.mp4";
    bench::runFfmpeg({"-f", "lavfi", "-i",
                      "testsrc2=size=1920x1080:rate=30,noise=alls=4:allf=t:all_seed=1", "-frames:v",
                      std::to_string(kPictures), "-pix_fmt", "bgr24", "-f", "rawvideo", raw});
    const std::vector<std::uint8_t> pictures = readFile(raw);
    Cost cost;
    for (int round = 0; round < kRounds; ++round) {
        record(file, pictures, cost);
        const double start = ffmpegRecord(raw, file, 1);
        cost.ffmpeg.push_back((ffmpegRecord(raw, file, kPictures) - start) / (kPictures - 1));
    }
    std::filesystem::remove_all(folder);

    std::printf("1920x1080, %d pictures, %lu dropped     ms CPU/picture\n", kRounds * kPictures,
                static_cast<unsigned long>(cost.dropped));
    const auto row = [](const char* name, const std::vector<double>& seconds) {
        std::printf("  %-42s %8.3f\n", name, bench::median(seconds) * 1e3);
    };
    row("writeFrame, on the calling thread", cost.writeFrame);
    row("memcpy of the picture", cost.copy);
    row("recording, all threads", cost.recording);
    row("ffmpeg, bgr24 to libx264 superfast", cost.ffmpeg);
    std::printf("ratio recorder_write_time_to_memcpy %.3f\n",
                bench::medianRatio(cost.writeFrame, cost.copy));
    std::printf("ratio recorder_time_to_ffmpeg %.3f\n",
                bench::medianRatio(cost.recording, cost.ffmpeg));
    std::printf("ratio recorder_allocations_per_picture %.3f\n",
                static_cast<double>(cost.allocations) / (kRounds * kPictures));
    return 0;
}
