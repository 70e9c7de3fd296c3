#pragma once

#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

namespace pevrix::bench {

// Runs ffmpeg and returns its processor time; ends the program when it fails.
inline double runFfmpeg(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {"ffmpeg", "-nostdin", "-v", "error", "-y"});
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    pid_t child = 0;
    int status = 1;
    rusage usage{};
    if (posix_spawnp(&child, "ffmpeg", nullptr, nullptr, argv.data(), environ) != 0 ||
        wait4(child, &status, 0, &usage) != child || status != 0) {
        std::fprintf(stderr, "ffmpeg failed; this benchmark needs it with libx264\n");
        std::exit(1);
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// Encodes a test picture as phones do, a keyframe in every 60. With grain, so that there is
// something to decode and no two pictures are alike.
inline void encodeGrain(int width, int height, int fps, int frames, const std::string& bitrate,
                        const std::string& file)
{
    runFfmpeg({"-f",
               "lavfi",
               "-i",
               "testsrc2=size=" + std::to_string(width) + "x" + std::to_string(height) +
                   ":rate=" + std::to_string(fps) + ",noise=alls=8:allf=t:all_seed=1",
               "-frames:v",
               std::to_string(frames),
               "-pix_fmt",
               "yuv420p",
               "-c:v",
               "libx264",
               "-profile:v",
               "main",
               "-preset",
               "veryfast",
               "-tune",
               "zerolatency",
               "-b:v",
               bitrate,
               "-x264-params",
               "keyint=60:scenecut=0:repeat-headers=1:sliced-threads=0",
               file});
}

} // namespace pevrix::bench
