#include "app/LogFile.h"
#include "app/QuitSignals.h"
#include "controller/AppController.h"
#include "ui/FramePreview.h"

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
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("app"), &controller);
    engine.load(QUrl(QStringLiteral("qrc:/qml/Main.qml")));
    if (engine.rootObjects().isEmpty()) {
        qWarning("Pevrix: Main.qml failed to load (see %%LOCALAPPDATA%%\\Pevrix\\pevrix.log).");
        return -1;
    }
    controller.start();
    return QApplication::exec();
}
