#include "app/LogFile.h"

#include "app/LogStorage.h"

#include <QByteArray>
#include <QDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace pevrix {

LogFile::LogFile(const QString& baseFolder)
    : m_path(baseFolder + u"/Pevrix/pevrix.log"_s)
{
    prepareLogFolder(m_path, kMaxLogBytes);
}

void LogFile::write(const QString& message) const
{
    const std::lock_guard lock(m_mutex);
    appendToLog(m_path, message.toUtf8() + '\n');
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
