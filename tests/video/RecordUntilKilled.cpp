// Records to the file that it is given, 30 pictures a second, until it is killed. Prints for every
// picture how many seconds the recording has run.
#include "video/Mp4Recorder.h"

#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

int main(int argc, char** argv)
{
    constexpr int kWidth = 320;
    constexpr int kHeight = 180;
    pevrix::Mp4Recorder recorder;
    if (argc != 2 || !recorder.open(argv[1], kWidth, kHeight, 30)) {
        return 1;
    }
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::uint8_t> picture(kWidth * kHeight * 3);
    for (int i = 1; recorder.isOpen(); ++i) {
        std::fill(picture.begin(), picture.end(), static_cast<std::uint8_t>(i));
        recorder.writeFrame(picture.data());
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        std::printf("%f\n", elapsed.count());
        std::fflush(stdout);
        std::this_thread::sleep_until(start + i * std::chrono::milliseconds(1000) / 30);
    }
    return 1;
}
