#include "ui/FileBrowser.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace pevrix {

void FileBrowser::showInFolder(const QString& file)
{
    QDBusMessage order = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    order << QStringList{QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)} << QString();
    auto* const answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(order), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, file] {
        answer->deleteLater();
        if (answer->isError()) {
            openFolderOf(file); // no file browser that answers to this
        }
    });
}

} // namespace pevrix
