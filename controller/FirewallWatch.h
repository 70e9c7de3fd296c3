#pragma once

#include "controller/SystemFunctions.h"

#include <QObject>
#include <QTimer>

#include <chrono>

namespace pevrix {

// Knows whether the firewall keeps phones out. The firewall has hundreds of rules to look at, so
// it is asked seldom, and only while somebody may be waiting in vain for a phone. GUI thread.
class FirewallWatch final : public QObject
{
    Q_OBJECT

public:
    // `system` must outlive the watch.
    FirewallWatch(const SystemFunctions& system, std::chrono::milliseconds interval,
                  QObject* parent = nullptr);

    // As of the last time that it was asked.
    [[nodiscard]] bool isBlocking() const { return m_blocking; }

    // Asks now. True when the answer is another one than before.
    bool refresh();

    // Whether to ask regularly.
    void setWaiting(bool waiting);

Q_SIGNALS:
    // Asked regularly, it gave another answer.
    void changed();

private:
    const SystemFunctions& m_system;
    QTimer m_timer;
    bool m_blocking = false;
};

} // namespace pevrix
