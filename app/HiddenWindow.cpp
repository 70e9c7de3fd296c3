#include "app/HiddenWindow.h"

#include <QWindow>

#include <utility>

namespace pevrix {

HiddenWindow::HiddenWindow(QWindow& window, std::function<bool()> isTrayAvailable,
                           std::chrono::milliseconds interval)
    : m_isTrayAvailable(std::move(isTrayAvailable))
{
    const auto follow = [this](bool visible) {
        m_misses = 0;
        if (visible) {
            m_timer.stop();
        } else {
            m_timer.start();
        }
    };
    m_timer.setInterval(interval);
    connect(&window, &QWindow::visibleChanged, this, follow);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_misses = m_isTrayAvailable() ? 0 : m_misses + 1;
        if (m_misses >= 2) {
            Q_EMIT lost();
        }
    });
    follow(window.isVisible());
}

} // namespace pevrix
