#include "controller/Recording.h"

#include "controller/Log.h"

#include <QDir>
#include <QFileInfo>

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

namespace pevrix {

namespace {

// A disk with less is full: a fragment of the recording, or its index, does not fit any more.
constexpr std::uintmax_t kFullDiskBytes = std::uintmax_t{4} * 1024 * 1024;

RecordingFailure failureAt(const QString& path)
{
    const std::filesystem::path folder = QFileInfo(path).path().toStdU16String();
    std::error_code error;
    const std::filesystem::space_info space = std::filesystem::space(folder, error);
    if (error) {
        return RecordingFailure::FolderGone;
    }
    return space.available < kFullDiskBytes ? RecordingFailure::DiskFull
                                            : RecordingFailure::WriteFailed;
}

const char* explain(RecordingFailure failure)
{
    switch (failure) {
    case RecordingFailure::DiskFull:
        return "the disk is full";
    case RecordingFailure::FolderGone:
        return "its folder is gone";
    case RecordingFailure::WriteFailed:
        break;
    }
    return "it could not be written";
}

} // namespace

bool Recording::start(const QString& path, QSize size, int fps)
{
    if (isRunning()) {
        return false;
    }
    stop(); // one that has ended by itself
    QDir().mkpath(QFileInfo(path).path());
    // With the system's own slashes: Windows' writer takes URLs, too, which have the others.
    std::filesystem::path file(path.toStdU16String());
    m_started = m_recorder.open(file.make_preferred(), static_cast<std::uint32_t>(size.width()),
                                static_cast<std::uint32_t>(size.height()), fps);
    if (m_started) {
        m_path = path;
        m_awake.emplace();
    } else {
        qCWarning(videoLog, "Pevrix: cannot record to %s", qUtf8Printable(path));
    }
    return m_started;
}

void Recording::stop()
{
    if (!std::exchange(m_started, false)) {
        return;
    }
    m_awake.reset();
    const bool complete = m_recorder.close();
    if (const auto dropped = m_recorder.droppedPictures(); dropped > 0) {
        qCWarning(videoLog, "Pevrix: the recording lacks %llu pictures; the encoder was too slow",
                  static_cast<unsigned long long>(dropped));
    }
    if (!complete) {
        const RecordingFailure failure = failureAt(m_path);
        qCWarning(videoLog, "Pevrix: the recording lacks its end: %s", explain(failure));
        if (m_onFailure) {
            m_onFailure(failure);
        }
    }
}

void Recording::check()
{
    if (!isRunning()) {
        stop();
    }
}

QSize Recording::size() const
{
    return {static_cast<int>(m_recorder.width()), static_cast<int>(m_recorder.height())};
}

void Recording::show(const SharedPicture& picture)
{
    check();
    if (size() == QSize(picture->width, picture->height)) {
        m_recorder.writeFrame(picture->pixels.data());
    }
}

} // namespace pevrix
