// What a picture for the camera costs the thread that has it, beside a plain copy of its bytes. The
// sender thread works at the camera's rate meanwhile. Both candidates take turns in every round;
// ratios are medians over the rounds.
#include "bench/VideoBench.h"
#include "camera/SoftcamSink.h"
#include "picture/PictureSize.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::atomic<long> allocations = 0;

} // namespace

// Every allocation of the program is counted, whichever thread makes it.
void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(std::max<std::size_t>(size, 1))) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

using namespace pevrix;

namespace {

constexpr int kRounds = 30;
constexpr int kPicturesPerRound = 30;

template <typename Copy>
double secondsPerPicture(const Copy& copy)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kPicturesPerRound; ++i) {
        copy();
    }
    const bench::Seconds elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / kPicturesPerRound;
}

bool benchSize(int width, int height)
{
    SoftcamSink sink(PEVRIX_BENCH_CAMERA);
    if (!sink.start(width, height, 30)) {
        std::fprintf(stderr, "there is no camera library %s beside this program\n",
                     PEVRIX_BENCH_CAMERA);
        return false;
    }
    const std::vector<std::uint8_t> picture(pictureBytes(width, height), 90);
    std::vector<std::uint8_t> copy(picture.size());
    std::vector<double> sinkTimes;
    std::vector<double> copyTimes;
    sinkTimes.reserve(kRounds);
    copyTimes.reserve(kRounds);

    const long before = allocations;
    for (int round = 0; round < kRounds; ++round) {
        sinkTimes.push_back(secondsPerPicture([&] { sink.sendFrame(picture.data()); }));
        copyTimes.push_back(secondsPerPicture([&] {
            std::memcpy(copy.data(), picture.data(), copy.size());
            // The bytes are needed, as far as the compiler knows.
            asm volatile("" : : "r"(copy.data()) : "memory");
        }));
    }
    const long made = allocations - before;

    std::printf("%dx%d: sink %.3f ms/picture, memcpy %.3f ms/picture\n", width, height,
                bench::median(sinkTimes) * 1e3, bench::median(copyTimes) * 1e3);
    std::printf("ratio sink_%d_time_to_memcpy %.3f\n", height,
                bench::medianRatio(sinkTimes, copyTimes));
    std::printf("ratio sink_%d_allocations_per_picture %.3f\n", height,
                static_cast<double>(made) / (kRounds * kPicturesPerRound));
    return made == 0;
}

} // namespace

int main()
{
    const bool smallIsClean = benchSize(1280, 720);
    const bool largeIsClean = benchSize(1920, 1080);
    return smallIsClean && largeIsClean ? EXIT_SUCCESS : EXIT_FAILURE;
}
