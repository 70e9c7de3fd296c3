#include "ui/FileBrowser.h"

#include <QDir>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
// After windows.h, which it needs.
#include <shlobj.h>

namespace pevrix {

// COM is ready on the GUI thread: Qt's own file dialogs need it, too.
void FileBrowser::showInFolder(const QString& file)
{
    const std::wstring path = QDir::toNativeSeparators(file).toStdWString();
    PIDLIST_ABSOLUTE item = nullptr;
    if (FAILED(SHParseDisplayName(path.c_str(), nullptr, &item, 0, nullptr))) {
        openFolderOf(file); // the file is gone
        return;
    }
    if (FAILED(SHOpenFolderAndSelectItems(item, 0, nullptr, 0))) {
        openFolderOf(file);
    }
    CoTaskMemFree(item);
}

} // namespace pevrix
