#include "app/LogFile.h"
#include "app/QuitSignals.h"
#include "controller/AppController.h"
#include "ui/FramePreview.h"
#include "ui/Translator.h"
#include "ui/UpdateChecker.h"

#include <QApplication>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickWindow>

namespace {

void registerQmlTypes()
{
    qmlRegisterType<pevrix::FramePreview>("Pevrix", 1, 0, "FramePreview");
    qmlRegisterSingletonType(QUrl(QStringLiteral("qrc:/qml/Theme.qml")), "Pevrix", 1, 0, "Theme");
}

} // namespace

// The order matters: the log handler comes first to catch the engine's own warnings, and the alpha
// buffer must be asked for before any window exists.
int main(int argc, char** argv)
{
    pevrix::installLogHandler();
    QQuickWindow::setDefaultAlphaBuffer(true);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pevrix"));
    QApplication::setOrganizationName(QStringLiteral("Pevrix"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/assets/icons/app-icon-256.png")));
    pevrix::quitOnSystemSignals(application);
    registerQmlTypes();

    pevrix::AppController controller;
    pevrix::UpdateChecker updater({.siteUrl = QStringLiteral(PEVRIX_SITE_URL),
                                   .endpoint = QUrl(QStringLiteral(PEVRIX_UPDATE_URL))});
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("app"), &controller);
    engine.rootContext()->setContextProperty(QStringLiteral("updater"), &updater);
    // Before the interface loads, so that it speaks the right language from its first word.
    pevrix::Translator translator(&application, &engine);
    engine.rootContext()->setContextProperty(QStringLiteral("i18n"), &translator);
    engine.load(QUrl(QStringLiteral("qrc:/qml/Main.qml")));
    if (engine.rootObjects().isEmpty()) {
        qWarning("Pevrix: Main.qml failed to load (see %%LOCALAPPDATA%%\\Pevrix\\pevrix.log).");
        return -1;
    }
    updater.check();
    controller.start();
    return QApplication::exec();
}
