#include "app/Tray.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPixmap>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

// What notification areas ask for at 100 to 200 % scaling. Up to 24 pixels a drawing of their size
// has fewer lines, on whole pixels.
constexpr std::array kIconSides{16, 20, 24, 32};
constexpr int kLargestDrawn = 24;
constexpr auto kBlinkInterval = 650ms;

constexpr auto kMenuStyle =
    "QMenu { background:#ffffff; border:1px solid #dfe3ea; padding:4px; }"
    "QMenu::item { padding:6px 22px 6px 12px; border-radius:4px; }"
    "QMenu::item:selected { background:#eef0fb; }"
    "QMenu::item:disabled { color:#9aa1ad; }"
    "QMenu::separator { height:1px; background:#e9ebf0; margin:4px 8px; }"_L1;

// The style says the menu's ground; its text must not be that of a dark desktop.
constexpr QColor kMenuText(0x13, 0x1a, 0x25);

QPixmap plainPicture(int side)
{
    const int drawn = side <= kLargestDrawn ? side : 256;
    const QPixmap picture(u":/assets/icons/app-icon-%1.png"_s.arg(drawn));
    if (!picture.isNull()) {
        return picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    QPixmap nothing(side, side);
    nothing.fill(Qt::transparent);
    return nothing;
}

} // namespace

Tray::Tray()
    : m_icons{drawIcon(Dot::None), drawIcon(Dot::Live), drawIcon(Dot::InUse)}
    , m_icon(m_icons[0])
{
    buildMenu();
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
                    Q_EMIT showRequested();
                }
            });
    m_blinkTimer.setInterval(kBlinkInterval);
    connect(&m_blinkTimer, &QTimer::timeout, this, [this] {
        m_blinkPhase = !m_blinkPhase;
        update();
    });
    retranslate();
}

QIcon Tray::drawIcon(Dot dot)
{
    QIcon icon;
    for (const int side : kIconSides) {
        icon.addPixmap(drawPicture(side, dot));
    }
    return icon;
}

// At 32 pixels the dot fills 13 x 13 from 14 pixels before the corner on, with a pen of 2. At other
// sizes its outer edge lies on whole pixels, too.
QPixmap Tray::drawPicture(int side, Dot dot)
{
    QPixmap pixmap = plainPicture(side);
    if (dot != Dot::None) {
        const int pen = qRound(side * 2 / 32.0);
        const int outer = qRound(side * 15 / 32.0);
        const qreal corner = side - outer + pen / 2.0;
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::white, pen));
        painter.setBrush(QColor(dot == Dot::Live ? u"#22c55e"_s : u"#ef4444"_s));
        painter.drawEllipse(QRectF(corner, corner, outer - pen, outer - pen));
    }
    return pixmap;
}

void Tray::buildMenu()
{
    m_menu.setStyleSheet(kMenuStyle);
    QPalette palette = m_menu.palette();
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Active, role, kMenuText);
        palette.setColor(QPalette::Inactive, role, kMenuText);
    }
    m_menu.setPalette(palette);
    m_showAction = m_menu.addAction(QString(), this, &Tray::showRequested);
    m_menu.addSeparator();
    m_pauseAction = m_menu.addAction(QString(), this, &Tray::pauseRequested);
    m_menu.addSeparator();
    m_quitAction = m_menu.addAction(QString(), this, &Tray::quitRequested);
}

void Tray::setState(const TrayState& state)
{
    if (state != m_state) {
        m_state = state;
        update();
    }
}

void Tray::tellWhereTheWindowIs()
{
    m_icon.showMessage(QCoreApplication::translate("tray", "Pevrix is still running"),
                       QCoreApplication::translate("tray",
                                                   "Click its icon to bring the window back. "
                                                   "\"Quit\" in its menu ends it."),
                       m_icons[0]);
}

void Tray::retranslate()
{
    m_showAction->setText(QCoreApplication::translate("tray", "Show Pevrix"));
    m_quitAction->setText(QCoreApplication::translate("tray", "Quit"));
    update();
}

void Tray::update()
{
    const Dot base = m_state.live ? Dot::Live : Dot::None;
    if (m_state.inUse) {
        if (!m_blinkTimer.isActive()) {
            m_blinkTimer.start();
        }
        show(m_blinkPhase ? Dot::InUse : base);
        m_icon.setToolTip(QCoreApplication::translate("tray", "Pevrix - in use by an app"));
    } else {
        m_blinkTimer.stop();
        m_blinkPhase = false;
        show(base);
        m_icon.setToolTip(u"Pevrix"_s);
    }
    m_pauseAction->setEnabled(m_state.live);
    if (m_state.outputEnabled) {
        //: Menu entry, a verb: pauses what programs get from the camera. "Resume" undoes it.
        m_pauseAction->setText(QCoreApplication::translate("tray", "Pause"));
    } else {
        m_pauseAction->setText(QCoreApplication::translate("tray", "Resume"));
    }
}

void Tray::show(Dot dot)
{
    if (dot != m_shown) { // a new picture goes over to the system's own process
        m_shown = dot;
        m_icon.setIcon(m_icons[static_cast<std::size_t>(dot)]);
    }
}

} // namespace pevrix
