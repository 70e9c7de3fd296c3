#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

namespace pevrix {

// Writes pictures to an MP4 file, encoded as H.264 (Main profile, 6 Mbit/s on average). Pictures
// carry the time of their writeFrame(), so a pause of the live video is a pause of the same length
// in the file.
//
// For one thread at a time. Encoding is left to threads of the back end: writeFrame() costs one
// pass over the pixels and never waits for encoder or disk.
class Mp4Recorder
{
public:
    // Width and height that are accepted, in pixels.
    static constexpr std::uint32_t kMaxSide = 8192;
    // The rate when the caller knows none.
    static constexpr int kDefaultFps = 30;
    static constexpr std::uint32_t kBitsPerSecond = 6'000'000;

    // What a recorder takes from its system; defined by the back end, replaced by tests.
    struct Platform;

    Mp4Recorder();
    explicit Mp4Recorder(const Platform& platform);
    ~Mp4Recorder();
    Mp4Recorder(const Mp4Recorder&) = delete;
    Mp4Recorder& operator=(const Mp4Recorder&) = delete;

    // Starts a recording, over a file that may exist. `fps` only describes the pictures to come; 0
    // and less means kDefaultFps. False while a recording is open, for a size that is not accepted
    // and when the system cannot record; no file is left behind then.
    [[nodiscard]] bool open(const std::filesystem::path& path, std::uint32_t width,
                            std::uint32_t height, int fps);

    // Appends a picture of the opened size: packed 3-byte pixels in the order blue, green, red, top
    // row first, rows without padding. Does nothing for null and when nothing is open.
    void writeFrame(const std::uint8_t* pixels);

    // Completes the file, which takes as long as the pictures that still wait need. Safe when
    // nothing is open. Destruction does the same. A recording without a single picture leaves no
    // file. False when the file could not be written to its end; what is there plays as far as the
    // system's way of writing allows.
    bool close();

    // False also once a recording has ended by itself because it could not be written any further,
    // as on a full disk or without its folder.
    [[nodiscard]] bool isOpen() const;

    // Of the recording's pictures; 0 when nothing is open.
    [[nodiscard]] std::uint32_t width() const { return isOpen() ? m_width : 0; }
    [[nodiscard]] std::uint32_t height() const { return isOpen() ? m_height : 0; }

    // Pictures of this recording, or of the last one when nothing is open, that are missing in the
    // file because the encoder was too slow.
    [[nodiscard]] std::uint64_t droppedPictures() const;

private:
    [[nodiscard]] static constexpr bool accepts(std::uint32_t width, std::uint32_t height)
    {
        return width >= 1 && width <= kMaxSide && height >= 1 && height <= kMaxSide;
    }

    class Recording;

    const std::unique_ptr<const Platform> m_platform;
    std::unique_ptr<Recording> m_recording;
    std::uint32_t m_width = 0;
    std::uint32_t m_height = 0;
    std::uint64_t m_droppedBefore = 0; // by the recording that was closed last
};

} // namespace pevrix
