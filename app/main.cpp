#include "app/CaptureMode.h"
#include "app/HiddenWindow.h"
#include "app/Log.h"
#include "app/LogFile.h"
#include "app/NativeWindow.h"
#include "app/QuitSignals.h"
#include "app/SingleInstance.h"
#include "app/Tray.h"
#include "app/WindowPlace.h"
#include "controller/AppController.h"
#include "qml/Interface.h"
#include "system/Console.h"
#include "system/Pace.h"
#include "ui/Translator.h"
#include "ui/UpdateChecker.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickWindow>
#include <QSystemTrayIcon>

#include <optional>

using namespace Qt::StringLiterals;
using namespace pevrix;

namespace {

// What the desktop and the settings know the program by.
void introduce()
{
    QApplication::setApplicationName(u"Pevrix"_s);
    QApplication::setOrganizationName(u"Pevrix"_s);
    QApplication::setDesktopFileName(u"example.pevrix.Pevrix"_s); // the Linux menu entry's name
    QApplication::setWindowIcon(QIcon(u":/assets/icons/app-icon-256.png"_s));
}

// Once the window is seen: encryption takes some hundred milliseconds to load.
void checkForUpdates(UpdateChecker& updater, const QQuickWindow& window)
{
    constexpr int kOnce = Qt::QueuedConnection | Qt::SingleShotConnection; // a type and a flag
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange)
    const auto once = static_cast<Qt::ConnectionType>(kOnce);
    QObject::connect(&window, &QQuickWindow::frameSwapped, &updater, &UpdateChecker::check, once);
}

// Brings the window back, maximised if it was so when it was hidden.
void showWindow(QWindow& window)
{
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.setVisible(true);
    window.raise();
    window.requestActivate();
}

// Where the program goes when its window is closed is told once, in the first run that does it.
void tellOfFirstHide(Tray& tray, Settings& settings)
{
    if (!settings.trayHintShown()) {
        settings.setTrayHintShown();
        tray.tellWhereTheWindowIs();
    }
}

void connectTray(Tray& tray, AppController& controller, const Translator& translator)
{
    const auto showState = [&tray, &controller] {
        tray.setState({.inUse = controller.appConnected(),
                       .live = controller.live(),
                       .outputEnabled = controller.outputEnabled()});
    };
    QObject::connect(&controller, &AppController::changed, &tray, showState);
    QObject::connect(&translator, &Translator::languageChanged, &tray, &Tray::retranslate);
    QObject::connect(&tray, &Tray::pauseRequested, &controller, &AppController::toggleOutput);
    // Not quit(), which would ask the window first: it hides instead of closing.
    QObject::connect(&tray, &Tray::quitRequested, &tray, [] { QCoreApplication::exit(0); });
    showState();
}

// What brings the window to the front, and keeps it from being hidden for good.
void connectWindow(QQuickWindow& window, HiddenWindow& hidden, Tray& tray, SingleInstance& instance,
                   Settings& settings)
{
    QObject::connect(&tray, &Tray::showRequested, &window, [&window] { showWindow(window); });
    QObject::connect(&instance, &SingleInstance::windowAskedFor, &window, [&window] {
        qCInfo(appLog, "Pevrix: started once more, the window comes to the front");
        showWindow(window);
    });
    // After a start in the notification area that is minimised, else as it was.
    QObject::connect(&hidden, &HiddenWindow::lost, &window, [&window] { window.setVisible(true); });
    // Asked anew each time: a desktop that starts us with it may get its tray after us.
    QObject::connect(&window, &QWindow::activeChanged, &window, [&window] {
        window.setProperty("trayAvailable", QSystemTrayIcon::isSystemTrayAvailable());
    });
    QObject::connect(&window, SIGNAL(hiddenToTray()), &hidden, SIGNAL(hiddenByUser()));
    QObject::connect(&hidden, &HiddenWindow::hiddenByUser, &tray,
                     [&tray, &settings] { tellOfFirstHide(tray, settings); });
}

} // namespace

// The order matters: the log handler comes first to catch the engine's own warnings, and the alpha
// buffer must be asked for before any window exists.
int main(int argc, char** argv)
{
    if (isHelpRequested(argc, argv)) {
        printToConsole(usageText());
        return 0;
    }
    installLogHandler();
    keepPaceWhileHidden();
    QQuickWindow::setDefaultAlphaBuffer(true);
    QApplication application(argc, argv);
    introduce();
    quitOnSystemSignals(application);

    const auto picture = parseCaptureOptions(QApplication::arguments());
    const bool inTray = isTrayStart(QApplication::arguments());
    SingleInstance instance(QFileInfo(Settings::userFile()).path());
    if (!picture && !instance.claim(!inTray)) {
        return 0;
    }
    registerInterface();

    AppController controller;
    // Nothing is destroyed when a session ends: a recording is completed while there is time.
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &controller,
                     &AppController::stop);
    UpdateChecker updater({.siteUrl = QStringLiteral(PEVRIX_SITE_URL),
                           .endpoint = QUrl(QStringLiteral(PEVRIX_UPDATE_URL))});
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(u"app"_s, &controller);
    engine.rootContext()->setContextProperty(u"updater"_s, &updater);
    // Before the interface loads, so that it speaks the right language from its first word.
    Translator translator(&application, &engine);
    engine.rootContext()->setContextProperty(u"i18n"_s, &translator);
    WindowPlace place(controller.settings());
    if (!picture) {
        engine.setInitialProperties(place.initialProperties(inTray));
    }
    engine.load(QUrl(u"qrc:/qml/Main.qml"_s));
    if (engine.rootObjects().isEmpty()) {
        qCWarning(appLog,
                  "Pevrix: Main.qml failed to load (see %%LOCALAPPDATA%%\\Pevrix\\pevrix.log).");
        return -1;
    }
    Tray tray;
    connectTray(tray, controller, translator);
    tray.icon().show();
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    std::optional<HiddenWindow> hidden;
    if (window) {
        addNativeWindowStyles(*window);
        checkForUpdates(updater, *window);
        hidden.emplace(*window, &QSystemTrayIcon::isSystemTrayAvailable);
        connectWindow(*window, *hidden, tray, instance, controller.settings());
        if (!picture) {
            place.follow(*window);
        }
    }
    std::optional<CaptureMode> capture;
    if (picture) {
        capture.emplace(*picture, controller, window);
    }
    controller.start();
    return QApplication::exec();
}
