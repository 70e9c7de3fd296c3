#pragma once

#include "pairing/Pairing.h"

#include <QObject>
#include <QTimer>

#include <chrono>

namespace pevrix {

// The pairing that this PC shows to phones, kept at the addresses that it has. GUI thread.
class PairingCode final : public QObject
{
    Q_OBJECT

public:
    // The addresses are asked for every `interval` while they are followed.
    PairingCode(const QString& tokenFolder, const EndpointFinder& findEndpoints,
                std::chrono::milliseconds interval, QObject* parent = nullptr);

    [[nodiscard]] const PairingInfo& info() const { return m_info; }

    // From the next one on with demonstration values in place of this PC's own.
    void setCaptureMode(bool on) { m_captureMode = on; }

    // Makes a new one, with a new token, for phones that connect to `port`.
    void renew(quint16 port);

    // Whether to follow the addresses: the PC may get another one, or its first, from a Wi-Fi that
    // comes up late or by waking in another network. The token stays, and so do the phones.
    void follow(bool on);

Q_SIGNALS:
    // info() is another one: the server and whoever shows it must have it before they go on.
    void changed();

private:
    void lookAround();

    const QString m_tokenFolder;
    const EndpointFinder m_findEndpoints;
    QTimer m_timer;
    PairingInfo m_info;
    quint16 m_port = 0;
    bool m_captureMode = false;
};

} // namespace pevrix
