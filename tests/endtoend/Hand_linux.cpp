// A hand inside the program, which has no display: presses what a file names, and takes the file
// away once it has.
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <cstdlib>

namespace pevrix {

namespace {

// A button of the window or, by its text, an entry of a menu.
bool press(const QString& name)
{
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        auto* button = window->findChild<QObject*>(name);
        if (button != nullptr && button->property("enabled").toBool()) {
            return QMetaObject::invokeMethod(button, "clicked");
        }
    }
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        for (QAction* action : widget->actions()) {
            if (action->text() == name) {
                return QMetaObject::invokeMethod(action, "trigger", Qt::QueuedConnection);
            }
        }
    }
    return false;
}

void look(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    if (press(QString::fromUtf8(file.readAll()))) {
        file.remove();
        // As at the end of a session; after all others who hear of it.
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp, [] { std::_Exit(0); });
    }
}

} // namespace

class HandPlugin final : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "Hand.json")

public:
    QObject* create(const QString&, const QString& path) override
    {
        auto* timer = new QTimer;
        timer->callOnTimeout(timer, [path] { look(path); });
        timer->start(20);
        return timer;
    }
};

} // namespace pevrix

#include "Hand_linux.moc"
