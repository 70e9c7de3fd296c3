#pragma once

#include "video/Mp4Recorder.h"

#include <filesystem>
#include <memory>
#include <random>
#include <string>

namespace pevrix {

// A recorder whose open() works here: the system's own or, where that has no encoder, one over a
// scripted writer that makes the files.
std::unique_ptr<Mp4Recorder> makeWorkingRecorder();

// A folder of the test's own, with names that a careless program stumbles over.
class TemporaryFolder
{
public:
    TemporaryFolder() { std::filesystem::create_directories(m_path); }
    ~TemporaryFolder()
    {
        std::error_code ignored; // on Windows a file may still be open
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const char* name) const { return m_path / name; }
    bool empty() const { return std::filesystem::is_empty(m_path); }

private:
    std::filesystem::path m_path = std::filesystem::temp_directory_path() /
                                   std::filesystem::path(u8"pevrix recorder ü " + randomName());

    static std::u8string randomName()
    {
        std::random_device random;
        const std::string name = std::to_string(random());
        return {name.begin(), name.end()};
    }
};

} // namespace pevrix
