#include "controller/PairingCode.h"

#include "controller/Log.h"

#include <QCoreApplication>

#include <utility>

namespace pevrix {

PairingCode::PairingCode(const QString& tokenFolder, const EndpointFinder& findEndpoints,
                         std::chrono::milliseconds interval, QObject* parent)
    : QObject(parent)
    , m_tokenFolder(tokenFolder.isEmpty() ? QCoreApplication::applicationDirPath() : tokenFolder)
    , m_findEndpoints(findEndpoints)
{
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &PairingCode::lookAround);
}

void PairingCode::renew(quint16 port)
{
    m_port = port;
    m_info = refreshPairing(m_tokenFolder, port, m_captureMode, m_findEndpoints);
    Q_EMIT changed();
}

void PairingCode::follow(bool on)
{
    on ? m_timer.start() : m_timer.stop();
}

void PairingCode::lookAround()
{
    auto moved = moveToPresentAddresses(m_info, m_port, m_captureMode, m_findEndpoints);
    if (!moved) {
        return;
    }
    qCInfo(controllerLog, "Pevrix: the addresses of this PC have changed");
    m_info = *std::move(moved);
    Q_EMIT changed();
}

} // namespace pevrix
