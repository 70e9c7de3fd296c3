#include "controller/Recording.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <utility>

namespace pevrix {

bool Recording::start(const QString& path, QSize size, int fps)
{
    if (isRunning()) {
        return false;
    }
    stop(); // one that has ended by itself
    QDir().mkpath(QFileInfo(path).path());
    m_started = m_recorder.open(std::filesystem::path(path.toStdU16String()),
                                static_cast<std::uint32_t>(size.width()),
                                static_cast<std::uint32_t>(size.height()), fps);
    if (m_started) {
        m_path = path;
    } else {
        qWarning("Pevrix: cannot record to %s", qUtf8Printable(path));
    }
    return m_started;
}

void Recording::stop()
{
    if (!std::exchange(m_started, false)) {
        return;
    }
    if (!m_recorder.isOpen()) {
        qWarning("Pevrix: the recording ended early, because it could not be written");
    }
    m_recorder.close();
    if (const auto dropped = m_recorder.droppedPictures(); dropped > 0) {
        qWarning("Pevrix: the recording lacks %llu pictures; the encoder was too slow",
                 static_cast<unsigned long long>(dropped));
    }
}

QSize Recording::size() const
{
    return {static_cast<int>(m_recorder.width()), static_cast<int>(m_recorder.height())};
}

void Recording::show(const SharedPicture& picture)
{
    if (!isRunning()) {
        stop(); // if it has ended by itself
    } else if (size() == QSize(picture->width, picture->height)) {
        m_recorder.writeFrame(picture->pixels.data());
    }
}

} // namespace pevrix
