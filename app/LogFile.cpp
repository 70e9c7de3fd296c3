#include "app/LogFile.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace pevrix {

LogFile::LogFile(const QString& baseFolder)
    : m_path(baseFolder + u"/Pevrix/pevrix.log"_s)
{
    const QFileInfo file(m_path);
    QDir().mkpath(file.path());
    if (file.size() > kMaxLogBytes) {
        QFile::remove(m_path);
    }
}

void LogFile::write(const QString& message) const
{
    // On Windows Qt appends in two steps, seeking to the end and writing there, so that without the
    // lock one thread's line would overwrite another's.
    const std::lock_guard lock(m_mutex);
    QFile file(m_path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
        file.write(message.toUtf8() + '\n');
        file.close();
    }
    const QByteArray local = message.toLocal8Bit() + '\n';
    std::fwrite(local.constData(), 1, static_cast<size_t>(local.size()), stderr);
    std::fflush(stderr);
}

QString LogFile::defaultBaseFolder()
{
    const QString folder = qEnvironmentVariable("LOCALAPPDATA");
    return folder.isEmpty() ? QDir::tempPath() : folder;
}

void installLogHandler()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        static const LogFile log(LogFile::defaultBaseFolder());
        log.write(message);
    });
}

} // namespace pevrix
