// The peer of the start-up benchmark: what Qt Quick itself takes to show a window.
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QUrl>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QQmlApplicationEngine engine(QUrl(u"qrc:/MinimalWindow.qml"_s));
    return QGuiApplication::exec();
}
