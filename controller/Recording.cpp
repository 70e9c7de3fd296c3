#include "controller/Recording.h"

#include "controller/Log.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using Outcome = RecordingReport::Outcome;

// A disk with less is full: a fragment of the recording, or its index, does not fit any more.
constexpr std::uintmax_t kFullDiskBytes = std::uintmax_t{4} * 1024 * 1024;

// The recorder does not tell why; its surroundings do.
Outcome failureAt(const QString& path)
{
    const QFileInfo folder(QFileInfo(path).path());
    std::error_code error;
    const std::filesystem::space_info space =
        std::filesystem::space(folder.filePath().toStdU16String(), error);
    if (error || !folder.isDir() || !folder.isWritable()) {
        return Outcome::FolderGone;
    }
    return space.available < kFullDiskBytes ? Outcome::DiskFull : Outcome::WriteFailed;
}

const char* explain(Outcome failure)
{
    switch (failure) {
    case Outcome::DiskFull:
        return "the disk is full";
    case Outcome::FolderGone:
        return "its folder is gone or not to be written to";
    default:
        return "it could not be written";
    }
}

} // namespace

QString outcomeName(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Saved:
        return u"saved"_s;
    case Outcome::Resized:
        return u"resized"_s;
    case Outcome::Empty:
        return u"empty"_s;
    case Outcome::DiskFull:
        return u"diskFull"_s;
    case Outcome::FolderGone:
        return u"folderGone"_s;
    case Outcome::WriteFailed:
        break;
    }
    return u"writeFailed"_s;
}

QString newRecordingPath(const QString& folder)
{
    const QString base =
        folder + u"/Pevrix_"_s + QDateTime::currentDateTime().toString(u"yyyyMMdd_HHmmss"_s);
    QString path = base + u".mp4"_s;
    for (int number = 2; QFileInfo::exists(path); ++number) {
        path = base + u'_' + QString::number(number) + u".mp4"_s;
    }
    return path;
}

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
        m_hasPicture = false;
        m_awake.emplace();
        m_clock.start();
    } else {
        const Outcome failure = failureAt(path);
        qCWarning(videoLog, "Pevrix: cannot record to %s: %s", qUtf8Printable(path),
                  explain(failure));
        report(failure, false, path);
    }
    return m_started;
}

void Recording::report(Outcome outcome, bool started, const QString& path) const
{
    if (m_report) {
        m_report({.outcome = outcome,
                  .started = started,
                  .path = path,
                  .seconds = started ? static_cast<int>(m_clock.elapsed() / 1000) : 0});
    }
}

void Recording::stop(Outcome outcome)
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
    if (complete && !m_hasPicture) {
        outcome = Outcome::Empty;
    } else if (!complete || !QFileInfo::exists(m_path)) {
        outcome = QFileInfo::exists(m_path) ? failureAt(m_path) : Outcome::FolderGone;
        qCWarning(videoLog, "Pevrix: the recording lacks its end: %s", explain(outcome));
    }
    report(outcome, true, m_path);
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
        m_hasPicture = true;
    }
}

} // namespace pevrix
