#include "app/CaptureMode.h"

#include "app/Log.h"
#include "controller/AppController.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

// From the first frame to the picture: the live view has settled by then.
constexpr auto kSettleTime = 500ms;
// A phone that was just made the active one needs this long to send its first frame.
constexpr auto kPhoneStartTime = 1200ms;

QString datedFile()
{
    QDir pictures(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    pictures.mkpath(u"Pevrix"_s);
    return pictures.filePath(u"Pevrix/Pevrix-"_s +
                             QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s) +
                             u".png"_s);
}

} // namespace

CaptureMode::CaptureMode(CaptureOptions options, AppController& controller, QQuickWindow* window)
    : m_options(std::move(options))
    , m_controller(controller)
    , m_window(window)
    , m_armed(m_options.phone.isEmpty())
{
    m_controller.setCaptureMode(true);
    if (m_window) {
        arrangeWindow();
    }
    if (!m_options.phone.isEmpty()) {
        connect(&m_controller, &AppController::changed, this, &CaptureMode::lookForPhone);
    }
    connect(&m_controller, &AppController::frameReady, this, &CaptureMode::onFrame);
    QTimer::singleShot(m_options.delay, this, &CaptureMode::grab);
}

void CaptureMode::arrangeWindow()
{
    m_window->setProperty("captureMode", true);
    m_window->resize(m_options.size);
    if (m_options.theme) {
        QMetaObject::invokeMethod(m_window, "shotSetTheme", *m_options.theme);
    }
    if (!m_options.view.isEmpty()) {
        QMetaObject::invokeMethod(m_window, "shotOpenView", m_options.view);
    }
}

void CaptureMode::lookForPhone()
{
    if (m_phoneFound) {
        return;
    }
    const QVariantList phones = m_controller.phones();
    for (const QVariant& entry : phones) {
        const QVariantMap phone = entry.toMap();
        if (phone[u"phoneName"_s].toString() == m_options.phone ||
            phone[u"name"_s].toString() == m_options.phone) {
            m_phoneFound = true; // before setActive(), which comes back here
            m_controller.setActive(phone[u"id"_s].toInt());
            QTimer::singleShot(kPhoneStartTime, this, [this] { m_armed = true; });
            return;
        }
    }
}

void CaptureMode::onFrame(const QImage& frame)
{
    if (m_armed && !frame.isNull()) {
        m_armed = false;
        QTimer::singleShot(kSettleTime, this, &CaptureMode::grab);
    }
}

void CaptureMode::grab()
{
    if (std::exchange(m_taken, true)) {
        return;
    }
    const QString file = m_options.output.isEmpty() ? datedFile() : m_options.output;
    const QImage picture = m_window ? m_window->grabWindow() : QImage();
    if (!picture.isNull() && picture.save(file)) {
        qCInfo(appLog, "Pevrix: shot saved to %s", qUtf8Printable(file));
    } else {
        qCWarning(appLog, "Pevrix: shot FAILED for %s", qUtf8Printable(file));
    }
    QCoreApplication::exit(0); // not quit(), which the window may refuse
}

} // namespace pevrix
