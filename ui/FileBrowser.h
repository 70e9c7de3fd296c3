#pragma once

#include <QObject>
#include <QString>

namespace pevrix {

// The desktop's file browser. GUI thread.
class FileBrowser : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Opens the file's folder, with the file selected where the file browser can do that. Does not
    // wait for it.
    Q_INVOKABLE void showInFolder(const QString& file);

private:
    static void openFolderOf(const QString& file);
};

} // namespace pevrix
