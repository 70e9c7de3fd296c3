#include "app/LogStorage.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace pevrix {

void prepareLogFolder(const QString& path, qint64 maxBytes)
{
    const QFileInfo file(path);
    QDir().mkpath(file.path());
    if (file.size() > maxBytes) {
        QFile::remove(path);
    }
}

// Qt appends in two steps, seeking to the end and writing there.
void appendToLog(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
        file.write(text);
    }
}

} // namespace pevrix
