// Processor time of decoding an H.264 stream and converting it to BGR: H264Decoder against the
// ffmpeg program with one thread, which does the same work from the same file, and against ffmpeg
// that only decodes. The start of the ffmpeg program, measured with one picture, is taken off its
// times. They take turns; ratios are medians over the rounds.
#include "bench/FfmpegPeer.h"
#include "bench/VideoBench.h"
#include "tools/doubles/AnnexB.h"
#include "video/H264Decoder.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

using namespace pevrix;
using bench::runFfmpeg;

namespace {

constexpr int kRounds = 7;

double decode(const std::vector<AccessUnit>& units)
{
    std::size_t pictures = 0;
    const auto start = bench::cpuTime();
    H264Decoder decoder([&](const std::uint8_t* /*bgr*/, int /*width*/, int /*height*/,
                            std::int64_t /*ptsUsec*/) { ++pictures; });
    bool ready = decoder.initialize(1280, 720);
    for (const AccessUnit& unit : units) {
        decoder.feed(unit.bytes, 0);
    }
    const double seconds = (bench::cpuTime() - start).count();
    if (!ready || pictures != units.size()) {
        std::fprintf(stderr, "%zu pictures of %zu\n", pictures, units.size());
        std::exit(1);
    }
    return seconds;
}

} // namespace

int main()
{
    std::string folder = (std::filesystem::temp_directory_path() / "decode-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        std::perror("temporary folder");
        return 1;
    }
    const std::string file = folder + "/stream.h264";
    bench::encodeGrain(1280, 720, 30, 300, "4M", file);
    std::ifstream input(file, std::ios::binary);
    const std::vector<char> read(std::istreambuf_iterator<char>(input), {});
    const std::vector<std::uint8_t> bytes(read.begin(), read.end());
    const auto units = splitAccessUnits(bytes);

    std::vector<double> ours;
    std::vector<double> toBgr;
    std::vector<double> toNothing;
    for (int round = 0; round < kRounds; ++round) {
        ours.push_back(decode(units));
        const double start =
            runFfmpeg({"-threads", "1", "-i", file, "-frames:v", "1", "-f", "null", "-"});
        toBgr.push_back(runFfmpeg({"-threads", "1", "-filter_threads", "1", "-i", file, "-pix_fmt",
                                   "bgr24", "-f", "rawvideo", "/dev/null"}) -
                        start);
        toNothing.push_back(runFfmpeg({"-threads", "1", "-i", file, "-f", "null", "-"}) - start);
    }
    std::filesystem::remove_all(folder);

    std::printf("1280x720, %zu pictures, %.1f Mbit/s     ms CPU/picture\n", units.size(),
                static_cast<double>(bytes.size()) * 8 * 30 / static_cast<double>(units.size()) /
                    1e6);
    const auto row = [&](const char* name, const std::vector<double>& seconds) {
        std::printf("  %-42s %8.3f\n", name,
                    bench::median(seconds) * 1e3 / static_cast<double>(units.size()));
    };
    row("H264Decoder, decode and convert to BGR", ours);
    row("ffmpeg -threads 1, bgr24", toBgr);
    row("ffmpeg -threads 1, decode only", toNothing);
    std::printf("ratio decode_time_to_ffmpeg_bgr24 %.3f\n", bench::medianRatio(ours, toBgr));
    std::printf("ratio decode_time_to_ffmpeg_null %.3f\n", bench::medianRatio(ours, toNothing));
    return 0;
}
