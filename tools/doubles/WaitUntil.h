#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>

namespace pevrix {

// Runs the event loop until the condition holds; false when it never does. The limit is far beyond
// what a slow machine needs. Looks again after every event, so that nothing is slept away.
template <typename Condition>
[[nodiscard]] bool waitUntil(const Condition& condition,
                             QDeadlineTimer limit = QDeadlineTimer(std::chrono::minutes(1)))
{
    QTimer wakeUp; // for conditions that no event of this thread brings about
    wakeUp.start(std::chrono::milliseconds(5));
    while (!condition()) {
        if (limit.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

inline void letEventsRunFor(std::chrono::milliseconds time)
{
    static_cast<void>(waitUntil([] { return false; }, QDeadlineTimer(time)));
}

} // namespace pevrix
