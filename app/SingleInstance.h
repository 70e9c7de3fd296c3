#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

class QLocalSocket;

namespace pevrix {

// Lets one Pevrix run for each folder of settings. The first one holds a lock file there, which a
// crash does not leave locked, and listens on a socket of the user's own; a later one asks it for
// its window. GUI thread.
class SingleInstance final : public QObject
{
    Q_OBJECT

public:
    // The folder is made when it is missing.
    explicit SingleInstance(const QString& folder);

    // True: this is the one that runs. False: another one does; with `show`, it has been asked to
    // bring its window to the front. Waits some seconds for one that is just starting. Where the
    // folder cannot be written to, or the other one cannot be reached, it is true, and the log says
    // so.
    [[nodiscard]] bool claim(bool show);

Q_SIGNALS:
    // Another one was started. The window may come to the front now.
    void windowAskedFor();

private:
    void listen();
    [[nodiscard]] bool askForWindow() const;
    void onConnection(QLocalSocket& socket);

    const QString m_channel;
    QLockFile m_lock;
    QLocalServer m_server;
};

} // namespace pevrix
