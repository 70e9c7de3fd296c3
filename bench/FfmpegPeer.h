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

} // namespace pevrix::bench
