#pragma once

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

#include <array>

namespace pevrix {

// What the notification area tells of the program.
struct TrayState
{
    bool inUse = false; // an application has the virtual camera open
    bool live = false;  // a phone is streaming
    bool outputEnabled = true;

    friend bool operator==(const TrayState&, const TrayState&) = default;
};

// The icon in the notification area and its menu. A green dot says that a phone is live; a red one
// blinks over it for as long as an application uses the camera. GUI thread.
class Tray final : public QObject
{
    Q_OBJECT

public:
    // Not yet shown.
    Tray();

    void setState(const TrayState& state);

    // Says, beside the icon, that the program runs on here without its window.
    void tellWhereTheWindowIs();

    // Sets all texts again, in the language that is installed now.
    void retranslate();

    [[nodiscard]] QSystemTrayIcon& icon() { return m_icon; }

Q_SIGNALS:
    void showRequested();
    void pauseRequested(); // or to resume
    void quitRequested();

private:
    // The dot at the icon's corner.
    enum class Dot
    {
        None,
        Live,
        InUse,
    };

    static QIcon drawIcon(Dot dot);
    static QPixmap drawPicture(int side, Dot dot);
    void buildMenu();
    void update();
    void show(Dot dot);

    const std::array<QIcon, 3> m_icons; // by Dot
    Dot m_shown = Dot::None;
    TrayState m_state;
    QTimer m_blinkTimer;
    bool m_blinkPhase = false;
    QMenu m_menu;
    QAction* m_showAction = nullptr;
    QAction* m_pauseAction = nullptr;
    QAction* m_quitAction = nullptr;
    QSystemTrayIcon m_icon;
};

} // namespace pevrix
