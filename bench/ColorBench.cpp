// Speed of the colour conversion: each kernel against the scalar one, libyuv and a plain copy of
// the result. All candidates take turns in every round; ratios are medians over the rounds.
#include "bench/VideoBench.h"
#include "video/ColorConversion.h"

#include <libyuv.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>
#include <string>

using namespace pevrix;

namespace {

constexpr int kRounds = 15;
constexpr int kPicturesPerRound = 20;

struct Candidate
{
    std::string name;
    std::function<void()> convert;
    int libyuvMayUse = -1;                      // instructions; -1 for all
    std::vector<double> secondsPerPicture = {}; // one per round
};

const char* nameOf(ColorKernel kernel)
{
    switch (kernel) {
    case ColorKernel::Scalar:
        return "scalar";
    case ColorKernel::Sse41:
        return "sse41";
    case ColorKernel::Avx2:
        return "avx2";
    case ColorKernel::None:
        break;
    }
    return "none";
}

void measure(Candidate& candidate)
{
    libyuv::MaskCpuFlags(candidate.libyuvMayUse);
    const auto start = bench::cpuTime();
    for (int i = 0; i < kPicturesPerRound; ++i) {
        candidate.convert();
    }
    const auto elapsed = bench::cpuTime() - start;
    candidate.secondsPerPicture.push_back(elapsed.count() / kPicturesPerRound);
}

void benchSize(int width, int height)
{
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::vector<std::uint8_t> yuv(pixels * 3 / 2);
    std::mt19937 random(1);
    std::generate(yuv.begin(), yuv.end(), [&] { return static_cast<std::uint8_t>(random()); });
    std::vector<std::uint8_t> bgr(pixels * 3);
    std::vector<std::uint8_t> copy(pixels * 3);
    const std::uint8_t* y = yuv.data();
    const std::uint8_t* uv = y + pixels;
    const Nv12Picture nv12{y, uv, width, width, width, height};
    const I420Picture i420{y, uv, uv + pixels / 4, width, width / 2, width, height};

    const auto libyuvConvert = [&] {
        libyuv::NV12ToRGB24(y, width, uv, width, bgr.data(), width * 3, width, height);
    };
    constexpr int kUpToSse41 =
        libyuv::kCpuHasX86 | libyuv::kCpuHasSSE2 | libyuv::kCpuHasSSSE3 | libyuv::kCpuHasSSE41;

    std::vector<Candidate> candidates;
    candidates.push_back({.name = "libyuv nv12", .convert = libyuvConvert});
    candidates.push_back(
        {.name = "libyuv ssse3 nv12", .convert = libyuvConvert, .libyuvMayUse = kUpToSse41});
    candidates.push_back({.name = "copy of bgr", .convert = [&] {
                              std::memcpy(copy.data(), bgr.data(), bgr.size());
                          }});
    for (const ColorKernel kernel : availableColorKernels()) {
        const std::string name = nameOf(kernel);
        candidates.push_back({.name = name + " nv12", .convert = [&, kernel] {
                                  convertToBgr(nv12, bgr.data(), kernel);
                              }});
        candidates.push_back({.name = name + " i420", .convert = [&, kernel] {
                                  convertToBgr(i420, bgr.data(), kernel);
                              }});
    }

    for (int round = 0; round < kRounds; ++round) {
        for (Candidate& candidate : candidates) {
            measure(candidate);
        }
    }

    std::printf(
        "\n%dx%d               ms/picture  Mpixel/s  speed: libyuv=1  its ssse3=1  scalar=1\n",
        width, height);
    const auto& libyuvTimes = candidates[0].secondsPerPicture;
    const auto& ssse3Times = candidates[1].secondsPerPicture;
    const auto& scalarTimes = candidates[3].secondsPerPicture;
    std::string ratios;
    for (const Candidate& candidate : candidates) {
        const double seconds = bench::median(candidate.secondsPerPicture);
        const double toLibyuv = bench::medianRatio(libyuvTimes, candidate.secondsPerPicture);
        const double toSsse3 = bench::medianRatio(ssse3Times, candidate.secondsPerPicture);
        const double toScalar = bench::medianRatio(scalarTimes, candidate.secondsPerPicture);
        std::printf("  %-20s %9.3f %10.0f %15.2f %12.2f %9.2f\n", candidate.name.c_str(),
                    seconds * 1e3, static_cast<double>(pixels) / seconds / 1e6, toLibyuv, toSsse3,
                    toScalar);
        std::string key = candidate.name + "_" + std::to_string(height);
        std::replace(key.begin(), key.end(), ' ', '_');
        if (&candidate - candidates.data() > 4) {
            ratios += "ratio " + key + "_speed_to_libyuv " + std::to_string(toLibyuv) + "\n";
            ratios += "ratio " + key + "_speed_to_libyuv_ssse3 " + std::to_string(toSsse3) + "\n";
            ratios += "ratio " + key + "_speed_to_scalar " + std::to_string(toScalar) + "\n";
        }
    }
    std::printf("%s", ratios.c_str());
}

} // namespace

int main()
{
    benchSize(1280, 720);
    benchSize(1920, 1080);
    return 0;
}
