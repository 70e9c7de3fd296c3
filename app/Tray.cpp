#include "app/Tray.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPen>
#include <QPixmap>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

constexpr int kIconSize = 32;
constexpr auto kBlinkInterval = 650ms;

constexpr auto kMenuStyle =
    "QMenu { background:#ffffff; border:1px solid #dfe3ea; padding:4px; }"
    "QMenu::item { padding:6px 22px 6px 12px; border-radius:4px; }"
    "QMenu::item:selected { background:#eef0fb; }"
    "QMenu::item:disabled { color:#9aa1ad; }"
    "QMenu::separator { height:1px; background:#e9ebf0; margin:4px 8px; }"_L1;

QPixmap plainIcon()
{
    const QPixmap picture(u":/assets/icons/app-icon-256.png"_s);
    if (!picture.isNull()) {
        return picture.scaled(kIconSize, kIconSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    QPixmap nothing(kIconSize, kIconSize);
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
    QPixmap pixmap = plainIcon();
    if (dot != Dot::None) {
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::white, 2.0));
        painter.setBrush(QColor(dot == Dot::Live ? u"#22c55e"_s : u"#ef4444"_s));
        painter.drawEllipse(QRectF(pixmap.width() - 14, pixmap.height() - 14, 13, 13));
    }
    return QIcon(pixmap);
}

void Tray::buildMenu()
{
    m_menu.setStyleSheet(kMenuStyle);
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
    m_pauseAction->setText(m_state.outputEnabled ? QCoreApplication::translate("tray", "Pause")
                                                 : QCoreApplication::translate("tray", "Resume"));
}

void Tray::show(Dot dot)
{
    if (dot != m_shown) { // a new picture goes over to the system's own process
        m_shown = dot;
        m_icon.setIcon(m_icons[static_cast<std::size_t>(dot)]);
    }
}

} // namespace pevrix
