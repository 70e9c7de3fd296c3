#include "ui/FileBrowser.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace pevrix {

void FileBrowser::openFolderOf(const QString& file)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).path()));
}

} // namespace pevrix
