#pragma once

// What independent programs say of a recorded file.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace pevrix {

// What a program prints.
inline std::string outputOf(const std::string& command)
{
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    std::array<char, 65536> part{};
    while (const std::size_t size = fread(part.data(), 1, part.size(), pipe.get())) {
        output.append(part.data(), size);
    }
    return output;
}

inline std::string quoted(const std::filesystem::path& path)
{
    return "'" + path.string() + "'";
}

// One line per stream or packet, fields separated by commas.
inline std::string probe(const std::filesystem::path& path, const std::string& entries)
{
    return outputOf("ffprobe -v error -count_frames -of csv=p=0 -show_entries " + entries + " " +
                    quoted(path));
}

inline std::size_t decodedPictures(const std::filesystem::path& path)
{
    return std::strtoul(probe(path, "stream=nb_read_frames").c_str(), nullptr, 10);
}

} // namespace pevrix
