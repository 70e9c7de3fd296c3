#pragma once

#include "tools/camreader/RawPicture.h"

#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pevrix {

struct ReaderOptions
{
    std::string command; // list, formats, check or read
    std::string camera = "Pevrix";
    RawLayout layout = RawLayout::None; // None: the camera's first format
    int width = 0;
    int height = 0;
    double seconds = 0; // 0: until the process is ended
    double interval = 0.5;
    int rounds = 1;
    bool witness = false;
    std::vector<Area> probes;
};

// "1280x720" as two numbers from 1 to 8192.
[[nodiscard]] bool parseSize(std::string_view text, int& width, int& height);

// A number that is not negative and makes up the whole text.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);

// Exit codes of both programs.
inline constexpr int kOk = 0;
inline constexpr int kNotRight = 1;
inline constexpr int kWrongArguments = 2;

// What main() of both programs does: reads the arguments and runs, or prints the usage.
template <typename Options>
int runProgram(std::span<char* const> arguments, const char* usage,
               std::optional<Options> (*read)(std::span<char* const> arguments),
               int (*run)(const Options& options))
{
    // Each line is there at once for whoever reads along.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    if (arguments.size() == 2 && std::string_view(arguments[1]) == "--help") {
        std::fputs(usage, stdout);
        return kOk;
    }
    const std::optional<Options> options = read(arguments.subspan(1));
    if (!options) {
        std::fputs(usage, stderr);
        return kWrongArguments;
    }
    return run(*options);
}

// Empty when the arguments are wrong.
[[nodiscard]] std::optional<ReaderOptions> readOptions(std::span<char* const> arguments);

extern const char* const kReaderUsage;

} // namespace pevrix
