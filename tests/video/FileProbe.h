#pragma once

// What independent programs say of a recorded file.

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace pevrix {

struct PipeClose
{
    void operator()(FILE* pipe) const { pclose(pipe); }
};
using Pipe = std::unique_ptr<FILE, PipeClose>;

// What a program prints.
inline std::string outputOf(const std::string& command)
{
    const Pipe pipe(popen(command.c_str(), "r"));
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

inline std::vector<std::string> topLevelBoxes(const std::filesystem::path& path)
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

} // namespace pevrix
