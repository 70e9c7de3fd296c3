#include "tools/soak/Media.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace pevrix {

Media::Media()
{
    const QByteArray home = m_home.path().toUtf8();
    for (const char* name :
         {"XDG_RUNTIME_DIR", "HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"}) {
        qputenv(name, home);
    }
    for (const char* name : {"PIPEWIRE_REMOTE", "PIPEWIRE_RUNTIME_DIR", "PIPEWIRE_CONFIG_DIR",
                             "DBUS_SESSION_BUS_ADDRESS"}) {
        qunsetenv(name);
    }
    qputenv("PIPEWIRE_DLCLOSE", "false"); // reports of sanitizers name its modules
}

bool Media::start()
{
    m_daemon.emplace(u"pipewire"_s);
    const QString socket = m_home.filePath(u"pipewire-0"_s);
    if (!waitUntil([&] { return QFile::exists(socket); })) {
        return false;
    }
    m_manager.emplace(u"wireplumber"_s, QStringList{u"-p"_s, u"video-only"_s});
    return true;
}

void Media::kill()
{
    m_manager.reset();
    m_daemon.reset();
    QFile::remove(m_home.filePath(u"pipewire-0"_s));
}

} // namespace pevrix
