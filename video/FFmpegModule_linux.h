#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

// What the program takes from libpevrix-ffmpeg.so, the library of ours beside it that alone is
// linked with FFmpeg. FFmpeg brings some ninety libraries along, which a program without a phone
// need not load.
namespace pevrix {

struct DecodedPicture
{
    int width = 0; // in pixels
    int height = 0;
    std::int64_t ptsUsec = 0;
};

// An open decoder. One caller at a time.
class IStreamDecoder
{
public:
    IStreamDecoder() = default;
    IStreamDecoder(const IStreamDecoder&) = delete;
    IStreamDecoder& operator=(const IStreamDecoder&) = delete;
    virtual ~IStreamDecoder() = default;

    // As H264Decoder::feed() describes them. False when pictures have to be received first.
    [[nodiscard]] virtual bool send(std::span<const std::uint8_t> data,
                                    std::int64_t timestampUs) = 0;

    // Converts the next picture that is ready into `bgr`, as packed pixels. None when there is
    // none.
    [[nodiscard]] virtual std::optional<DecodedPicture> receive(std::vector<std::uint8_t>& bgr) = 0;
};

// A recording that goes on in a thread of its own; its destructor completes the file. One caller at
// a time.
class IRecording
{
public:
    using Clock = std::chrono::steady_clock;

    struct Description
    {
        std::filesystem::path path;
        int width = 0;
        int height = 0;
        int fps = 0;                       // greater than 0
        std::vector<std::string> encoders; // the first that can be opened is used
        Clock::time_point start;
    };

    IRecording() = default;
    IRecording(const IRecording&) = delete;
    IRecording& operator=(const IRecording&) = delete;
    virtual ~IRecording() = default;

    // Appends a picture of packed BGR pixels, seen at `now`.
    virtual void add(const std::uint8_t* pixels, Clock::time_point now) = 0;

    // Completes the file, which takes as long as the pictures that still wait need. Whether it was
    // written to its end. Nothing may be added any more.
    virtual bool finish() = 0;

    // The file cannot be written any further.
    [[nodiscard]] virtual bool failed() const = 0;
    [[nodiscard]] virtual std::uint64_t droppedPictures() const = 0;
};

struct FFmpegModule
{
    // Program and library come from one build, for they share classes.
    static constexpr std::uint32_t kVersion = 1;

    std::uint32_t version = 0;
    // Null, and no file, when the library cannot.
    std::unique_ptr<IStreamDecoder> (*openDecoder)() = nullptr;
    std::unique_ptr<IRecording> (*openRecording)(const IRecording::Description&) = nullptr;
};

// The library's one export.
using FFmpegModuleEntry = const FFmpegModule* (*)();
inline constexpr const char* kFFmpegModuleEntryName = "pevrixFFmpegModule";

// For the program: the library, loaded with the first call and never unloaded, because its threads
// and the libraries behind it are not made for that. Null when it cannot be. Safe from any thread.
[[nodiscard]] const FFmpegModule* ffmpegModule();

} // namespace pevrix
