#pragma once

#include "video/FFmpegHandles.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pevrix {

// The encoder and the file of one recording, which begins with the first picture whatever its time.
// For one thread at a time, which may change.
//
// From its first half second on the file is playable at any time: it is written in fragments of
// that length that are handed to the system at once, so a crash costs less than the last second.
// finish() makes an ordinary file of it, with one index for all pictures.
class Mp4Writer
{
public:
    // Of the times of pictures. 90 kHz is exact for the usual picture rates.
    static constexpr AVRational kTimeBase{1, 90000};

    // `width` and `height` must be even. Null, and no file, when no encoder works or the file
    // cannot be written.
    [[nodiscard]] static std::unique_ptr<Mp4Writer>
    create(const std::filesystem::path& path, int width, int height, int fps,
           const std::vector<std::string>& encoders);

    // Encodes a picture of 8-bit planar 4:2:0 samples; frame.pts is its time, greater than that of
    // the picture before. False when it cannot be written: the recording ends there, and neither
    // encode() nor finish() may follow. A file without a single fragment is removed.
    [[nodiscard]] bool encode(AVFrame& frame);

    // Completes the file, and removes one without a picture. False when there is no room for the
    // index: the file stays fragmented.
    bool finish();

private:
    explicit Mp4Writer(std::filesystem::path path);

    [[nodiscard]] bool openEncoder(const std::string& name, int width, int height, int fps);
    [[nodiscard]] bool openFile();
    [[nodiscard]] bool startFile();
    [[nodiscard]] bool writePackets();
    [[nodiscard]] std::string readStart() const;
    void restoreStart(const std::string& start) const;
    void keepWholeFragments();

    const std::filesystem::path m_path;
    CodecContextHandle m_encoder;
    PacketHandle m_packet;
    OutputFormatHandle m_output;
    std::optional<std::int64_t> m_lastKeyframe;
    std::int64_t m_headerBytes = 0;
    std::int64_t m_wholeBytes = 0; // of the file, up to the end of the last fragment
};

} // namespace pevrix
