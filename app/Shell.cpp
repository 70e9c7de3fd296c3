#include "app/Shell.h"

#include "app/Log.h"
#include "app/NativeWindow.h"
#include "app/SingleInstance.h"

#include <QCoreApplication>
#include <QQmlContext>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

namespace pevrix {

Shell::Shell(const ShellOptions& options, SingleInstance& instance)
    : m_options(options)
    , m_instance(instance)
    , m_controller(options.controller)
    , m_updater(options.site)
    // Before the interface loads, so that it speaks the right language from its first word.
    , m_translator(QCoreApplication::instance(), &m_engine)
    , m_place(m_controller.settings())
{
    // Nothing is destroyed when a session ends: a recording is completed while there is time.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &m_controller,
            &AppController::stop);
}

bool Shell::start()
{
    if (!load()) {
        qCWarning(appLog,
                  "Pevrix: Main.qml failed to load (see %%LOCALAPPDATA%%\\Pevrix\\pevrix.log).");
        return false;
    }
    m_tray = std::make_unique<Tray>();
    connectTray();
    m_tray->icon().show();
    addNativeWindowStyles(*m_window);
    checkForUpdates();
    m_hidden = std::make_unique<HiddenWindow>(*m_window, m_options.isTrayAvailable,
                                              m_options.trayInterval);
    connectWindow();
    if (m_options.picture) {
        m_capture = std::make_unique<CaptureMode>(*m_options.picture, m_controller, m_window);
    } else {
        m_place.follow(*m_window);
        showFirstFrame(); // a capture may end the program with any event
    }
    m_controller.start();
    return true;
}

bool Shell::load()
{
    QQmlContext& context = *m_engine.rootContext();
    context.setContextProperty(u"app"_s, &m_controller);
    context.setContextProperty(u"updater"_s, &m_updater);
    context.setContextProperty(u"i18n"_s, &m_translator);
    if (!m_options.picture) {
        m_engine.setInitialProperties(m_place.initialProperties(m_options.inTray));
    }
    m_engine.load(QUrl(u"qrc:/qml/Main.qml"_s));
    m_window = qobject_cast<QQuickWindow*>(m_engine.rootObjects().value(0));
    return m_window != nullptr;
}

// Where the system wants the window drawn by now it is, and camera, port and pairing code come a
// moment later. What others want of the program waits for the event loop, which alone can be quit.
void Shell::showFirstFrame()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                    QEventLoop::ExcludeSocketNotifiers);
}

void Shell::connectTray()
{
    const auto showState = [this] {
        m_tray->setState({.inUse = m_controller.appConnected(),
                          .live = m_controller.live(),
                          .outputEnabled = m_controller.outputEnabled()});
    };
    connect(&m_controller, &AppController::changed, m_tray.get(), showState);
    connect(&m_translator, &Translator::languageChanged, m_tray.get(), &Tray::retranslate);
    connect(m_tray.get(), &Tray::showRequested, this, &Shell::showWindow);
    connect(m_tray.get(), &Tray::pauseRequested, &m_controller, &AppController::toggleOutput);
    // Not quit(), which would ask the window first: it hides instead of closing.
    connect(m_tray.get(), &Tray::quitRequested, this, [] { QCoreApplication::exit(0); });
    showState();
}

// What brings the window to the front, and keeps it from being hidden for good.
void Shell::connectWindow()
{
    connect(&m_instance, &SingleInstance::windowAskedFor, this, [this] {
        qCInfo(appLog, "Pevrix: started once more, the window comes to the front");
        showWindow();
    });
    // After a start in the notification area that is minimised, else as it was.
    connect(m_hidden.get(), &HiddenWindow::lost, this, [this] { m_window->setVisible(true); });
    // Asked anew each time: a desktop that starts us with it may get its tray after us.
    connect(m_window, &QWindow::activeChanged, this,
            [this] { m_window->setProperty("trayAvailable", m_options.isTrayAvailable()); });
    connect(m_window, SIGNAL(hiddenToTray()), m_hidden.get(), SIGNAL(hiddenByUser()));
    connect(m_hidden.get(), &HiddenWindow::hiddenByUser, this, &Shell::tellOfFirstHide);
}

// Once the window is seen: encryption takes some hundred milliseconds to load.
void Shell::checkForUpdates()
{
    constexpr int kOnce = Qt::QueuedConnection | Qt::SingleShotConnection; // a type and a flag
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange)
    const auto once = static_cast<Qt::ConnectionType>(kOnce);
    connect(m_window, &QQuickWindow::frameSwapped, &m_updater, &UpdateChecker::check, once);
}

// Brings the window back, maximised if it was so when it was hidden.
void Shell::showWindow()
{
    m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    m_window->setVisible(true);
    m_window->raise();
    m_window->requestActivate();
}

// Where the program goes when its window is closed is told once, in the first run that does it.
void Shell::tellOfFirstHide()
{
    Settings& settings = m_controller.settings();
    if (!settings.trayHintShown()) {
        settings.setTrayHintShown();
        m_tray->tellWhereTheWindowIs();
    }
}

} // namespace pevrix
