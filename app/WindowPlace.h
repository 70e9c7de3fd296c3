#pragma once

#include "controller/Settings.h"

#include <QList>
#include <QObject>
#include <QRect>
#include <QTimer>
#include <QVariantMap>

class QWindow;

namespace pevrix {

// The wanted place, moved and shrunk until it lies within the one of `screens` (the usable areas,
// the main one first) that holds most of it, or is nearest. `overhang` pixels on each side may lie
// beyond.
[[nodiscard]] QRect placeOnScreens(const QRect& wanted, const QList<QRect>& screens, int overhang);

// Keeps the main window's place between runs. GUI thread.
class WindowPlace final : public QObject
{
    Q_OBJECT

public:
    // `settings` must outlive this object.
    explicit WindowPlace(Settings& settings);

    // What the window is to be made with, to be where it was; places on screens that are no more
    // are mended. `hidden`: it is not shown yet.
    [[nodiscard]] QVariantMap initialProperties(bool hidden) const;

    // Brings the window, just made, within its screen, and remembers from here on where it is.
    void follow(QWindow& window);

private:
    void mend(QWindow& window) const;
    void remember(const QWindow& window);

    Settings& m_settings;
    Settings::WindowState m_state;
    QTimer m_settled; // runs out once the window has stopped moving
};

} // namespace pevrix
