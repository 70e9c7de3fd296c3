#include "controller/FirewallWatch.h"

#include "controller/Log.h"

#include <QCoreApplication>

#include <filesystem>

namespace pevrix {

FirewallWatch::FirewallWatch(const SystemFunctions& system, std::chrono::milliseconds interval,
                             QObject* parent)
    : QObject(parent)
    , m_system(system)
{
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (refresh()) {
            Q_EMIT changed();
        }
    });
}

bool FirewallWatch::refresh()
{
    // The rules hold the path as the system writes it.
    std::filesystem::path program(QCoreApplication::applicationFilePath().toStdU16String());
    program.make_preferred();
    const bool blocking = m_system.isFirewallBlocking(program);
    if (blocking == m_blocking) {
        return false;
    }
    qCInfo(systemLog, "Pevrix: the firewall %s phones", blocking ? "blocks" : "no longer blocks");
    m_blocking = blocking;
    return true;
}

void FirewallWatch::setWaiting(bool waiting)
{
    if (!waiting) {
        m_timer.stop();
    } else if (!m_timer.isActive()) {
        m_timer.start();
    }
}

} // namespace pevrix
