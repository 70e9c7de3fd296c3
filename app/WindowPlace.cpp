#include "app/WindowPlace.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

constexpr auto kSettleTime = 500ms;
// The transparent margin around the window's card, for its shadow, may lie beyond the screen's
// edge.
constexpr int kShadowMargin = 16;

qint64 areaOf(const QRect& rect)
{
    return rect.isEmpty() ? 0 : qint64{rect.width()} * rect.height();
}

QRect screenFor(const QRect& wanted, const QList<QRect>& screens)
{
    const auto farther = [&wanted](const QRect& a, const QRect& b) {
        const qint64 seenOfA = areaOf(a & wanted);
        const qint64 seenOfB = areaOf(b & wanted);
        return seenOfA != seenOfB
            ? seenOfA<seenOfB : (a.center() - wanted.center()).manhattanLength()>(b.center() -
                                                                                  wanted.center())
                  .manhattanLength();
    };
    return *std::max_element(screens.begin(), screens.end(), farther);
}

QList<QRect> usableScreens()
{
    QList<QRect> areas;
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        areas.append(screen->availableGeometry());
    }
    return areas;
}

} // namespace

QRect placeOnScreens(const QRect& wanted, const QList<QRect>& screens, int overhang)
{
    if (screens.isEmpty()) {
        return wanted;
    }
    const QRect screen = screenFor(wanted, screens);
    const QSize size = wanted.size().boundedTo(screen.size());
    const QRect room = screen.adjusted(-overhang, -overhang, overhang, overhang);
    return {QPoint(std::clamp(wanted.x(), room.left(), room.right() + 1 - size.width()),
                   std::clamp(wanted.y(), room.top(), room.bottom() + 1 - size.height())),
            size};
}

WindowPlace::WindowPlace(Settings& settings)
    : m_settings(settings)
    , m_state(settings.windowState())
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(kSettleTime);
}

QVariantMap WindowPlace::initialProperties(bool hidden) const
{
    QVariantMap properties;
    if (m_state.geometry.isValid()) {
        const QRect place = placeOnScreens(m_state.geometry, usableScreens(), kShadowMargin);
        properties = {{u"x"_s, place.x()},
                      {u"y"_s, place.y()},
                      {u"width"_s, place.width()},
                      {u"height"_s, place.height()},
                      {u"_restoreW"_s, place.width()}};
    }
    if (hidden) {
        properties.insert(u"visible"_s, false);
    } else if (m_state.maximized) {
        properties.insert(u"visibility"_s, QVariant::fromValue(QWindow::Maximized));
    }
    return properties;
}

void WindowPlace::follow(QWindow& window)
{
    mend(window);
    if (!window.isVisible()) { // shown before it is asked for, it only lies in the task bar
        window.setWindowStates(m_state.maximized ? Qt::WindowMinimized | Qt::WindowMaximized
                                                 : Qt::WindowMinimized);
    }
    const auto moved = [this] {
        m_settled.start();
    };
    connect(&window, &QWindow::xChanged, this, moved);
    connect(&window, &QWindow::yChanged, this, moved);
    connect(&window, &QWindow::widthChanged, this, moved);
    connect(&window, &QWindow::heightChanged, this, moved);
    connect(&window, &QWindow::windowStateChanged, this, moved);
    connect(&m_settled, &QTimer::timeout, &window, [this, &window] { remember(window); });
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this, &window] {
        if (m_settled.isActive()) {
            remember(window);
        }
    });
}

// The window's own least size gives way on a screen that is smaller.
void WindowPlace::mend(QWindow& window) const
{
    const QSize screen = window.screen()->availableSize();
    window.setMinimumSize(window.minimumSize().boundedTo(screen));
    if ((window.windowStates() & Qt::WindowMaximized) == 0) {
        const QRect place = placeOnScreens(window.geometry(), usableScreens(), kShadowMargin);
        if (place != window.geometry()) {
            window.setGeometry(place);
        }
    }
}

// Its size while it is maximised is the screen's: what is remembered is the one to go back to.
void WindowPlace::remember(const QWindow& window)
{
    const Qt::WindowStates states = window.windowStates();
    if ((states & (Qt::WindowMinimized | Qt::WindowFullScreen)) != 0) {
        return;
    }
    m_state.maximized = (states & Qt::WindowMaximized) != 0;
    if (!m_state.maximized) {
        m_state.geometry = window.geometry();
    }
    m_settings.setWindowState(m_state);
}

} // namespace pevrix
