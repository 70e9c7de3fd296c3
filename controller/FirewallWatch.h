#pragma once

#include "controller/SystemFunctions.h"

#include <QObject>
#include <QTimer>

#include <chrono>

namespace pevrix {

// Knows whether the firewall keeps phones out. Asking means to look at hundreds of rules, so it is
// done rarely, and only while no phone is connected. GUI thread.
class FirewallWatch final : public QObject
{
    Q_OBJECT

public:
    // `system` must outlive the watch.
    FirewallWatch(const SystemFunctions& system, std::chrono::milliseconds interval,
                  QObject* parent = nullptr);

    // The last answer.
    [[nodiscard]] bool isBlocking() const { return m_blocking; }

    // Asks now. True when the answer has changed.
    bool refresh();

    // Whether to ask regularly.
    void setWaiting(bool waiting);

Q_SIGNALS:
    // The answer of a regular question is different from the one before.
    void changed();

private:
    const SystemFunctions& m_system;
    QTimer m_timer;
    bool m_blocking = false;
};

} // namespace pevrix
