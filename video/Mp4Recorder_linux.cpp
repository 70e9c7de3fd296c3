#include "video/FFmpegModule_linux.h"
#include "video/Mp4Recorder.h"
#include "video/Mp4RecorderPlatform_linux.h"

#include <algorithm>
#include <utility>

namespace pevrix {

namespace {

// Higher rates are not told to the encoder, which only estimates by them.
constexpr int kMaxFps = 1000;

} // namespace

class Mp4Recorder::Recording
{
public:
    explicit Recording(std::unique_ptr<IRecording> recording)
        : m_recording(std::move(recording))
    {}
    IRecording* operator->() const { return m_recording.get(); }

private:
    const std::unique_ptr<IRecording> m_recording;
};

Mp4Recorder::Mp4Recorder()
    : Mp4Recorder(Platform{})
{}

Mp4Recorder::Mp4Recorder(const Platform& platform)
    : m_platform(std::make_unique<const Platform>(platform))
{}

Mp4Recorder::~Mp4Recorder() = default;

bool Mp4Recorder::open(const std::filesystem::path& path, std::uint32_t width, std::uint32_t height,
                       int fps)
{
    const FFmpegModule* module = ffmpegModule();
    if (isOpen() || !accepts(width, height) || module == nullptr) {
        return false;
    }
    close(); // a recording that has ended by itself
    auto recording = module->openRecording({.path = path,
                                            .width = static_cast<int>(width),
                                            .height = static_cast<int>(height),
                                            .fps = std::min(fps > 0 ? fps : kDefaultFps, kMaxFps),
                                            .encoders = m_platform->encoders,
                                            .start = m_platform->now()});
    if (recording == nullptr) {
        return false;
    }
    m_recording = std::make_unique<Recording>(std::move(recording));
    m_width = width;
    m_height = height;
    m_droppedBefore = 0;
    return true;
}

void Mp4Recorder::writeFrame(const std::uint8_t* pixels)
{
    if (pixels != nullptr && isOpen()) {
        (*m_recording)->add(pixels, m_platform->now());
    }
}

bool Mp4Recorder::close()
{
    if (m_recording == nullptr) {
        return true;
    }
    const bool complete = (*m_recording)->finish();
    m_droppedBefore = (*m_recording)->droppedPictures();
    m_recording.reset();
    return complete;
}

bool Mp4Recorder::isOpen() const
{
    return m_recording != nullptr && !(*m_recording)->failed();
}

std::uint64_t Mp4Recorder::droppedPictures() const
{
    return m_recording != nullptr ? (*m_recording)->droppedPictures() : m_droppedBefore;
}

} // namespace pevrix
