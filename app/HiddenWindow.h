#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class QWindow;

namespace pevrix {

// Watches over a hidden window: without a notification area nothing could bring it back. GUI
// thread.
class HiddenWindow final : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds kInterval{3000};

    // `window` must outlive this object. `isTrayAvailable` is asked once in an interval, while the
    // window is hidden only.
    HiddenWindow(QWindow& window, std::function<bool()> isTrayAvailable,
                 std::chrono::milliseconds interval = kInterval);

Q_SIGNALS:
    // The window is hidden and the notification area has been gone for two intervals: that long the
    // system may take to start it, or to start it anew.
    void lost();
    // The user closed the window, which hid it. For the window to be connected to.
    void hiddenByUser();

private:
    const std::function<bool()> m_isTrayAvailable;
    QTimer m_timer;
    int m_misses = 0;
};

} // namespace pevrix
