#pragma once

#include "tools/doubles/Program.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <optional>

namespace pevrix::test {

using namespace Qt::StringLiterals;
using pevrix::waitUntil;

constexpr int kPatienceMs = 60000; // a loaded machine under a sanitizer is slow

// The private runtime folder of a test: this process and its children see no PipeWire but the one
// started here. Make it before anything else, as it changes the environment.
class PipeWireSession
{
public:
    PipeWireSession()
    {
        const QByteArray home = m_home.path().toUtf8();
        for (const char* name :
             {"XDG_RUNTIME_DIR", "HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
            qputenv(name, home);
        }
        for (const char* name : {"PIPEWIRE_REMOTE", "PIPEWIRE_RUNTIME_DIR", "PIPEWIRE_CONFIG_DIR",
                                 "DBUS_SESSION_BUS_ADDRESS"}) {
            qunsetenv(name);
        }
        qputenv("PIPEWIRE_DLCLOSE", "false"); // reports of sanitizers name its modules
    }

    void startDaemon()
    {
        m_daemon.emplace(u"pipewire"_s, QStringList());
        const QString socket = m_home.filePath(u"pipewire-0"_s);
        ASSERT_TRUE(waitUntil([&] { return QFile::exists(socket); }));
        m_manager.emplace(u"wireplumber"_s, QStringList{u"-p"_s, u"video-only"_s});
    }

    // As in a crash: nobody says goodbye.
    void killDaemon()
    {
        m_manager.reset();
        m_daemon.reset();
        QFile::remove(m_home.filePath(u"pipewire-0"_s));
    }

    [[nodiscard]] qint64 daemonId() const { return m_daemon->processId(); }

    // The camera's node as the daemon describes it, once it offers pictures of this width.
    [[nodiscard]] QJsonObject waitForCamera(int width) const
    {
        QJsonObject info;
        EXPECT_TRUE(waitUntil([&] {
            info = camera();
            const auto format = info["params"_L1]["EnumFormat"_L1][0];
            return format["size"_L1]["width"_L1].toInt() == width;
        })) << "no camera in the daemon";
        return info;
    }

    [[nodiscard]] static QJsonObject camera()
    {
        Program dump(u"pw-dump"_s);
        dump.waitForFinished(kPatienceMs);
        const auto objects = QJsonDocument::fromJson(dump.readAllStandardOutput()).array();
        for (const auto& object : objects) {
            const QJsonObject info = object["info"_L1].toObject();
            if (info["props"_L1]["node.name"_L1] == "pevrix-camera"_L1) {
                return info;
            }
        }
        return {};
    }

private:
    QTemporaryDir m_home;
    std::optional<Program> m_daemon;
    std::optional<Program> m_manager;
};

} // namespace pevrix::test
