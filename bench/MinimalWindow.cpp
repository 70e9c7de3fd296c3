// The peer of the start-up benchmark: what Qt Quick itself takes to show a window.
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QUrl>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QQmlApplicationEngine engine(QUrl(QStringLiteral("qrc:/MinimalWindow.qml")));
    return QGuiApplication::exec();
}
