#include "qml/Interface.h"
#include "ui/Translator.h"

#include <QFont>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>
#include <QtQuickTest/quicktest.h>

using namespace Qt::StringLiterals;

namespace pevrix {

// Gives each test file's engine what the program gives its own, scripted where a state at will is
// needed.
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
        QFont font; // the width of texts matters
        font.setFamilies({u"Segoe UI"_s, u"Open Sans"_s});
        QGuiApplication::setFont(font);
        registerInterface();
    }

    void qmlEngineAvailable(QQmlEngine* engine)
    {
        provide(engine, u"app"_s, make(engine, u"ScriptedApp"_s));
        provide(engine, u"updater"_s, make(engine, u"ScriptedUpdater"_s));
        auto* translator = new Translator(QGuiApplication::instance(), engine, engine);
        engine->rootContext()->setContextProperty(u"i18n"_s, translator);
    }

private:
    static QObject* make(QQmlEngine* engine, const QString& component)
    {
        QQmlComponent made(engine, QUrl("qrc:/gallery/"_L1 + component + ".qml"_L1));
        return made.create();
    }

    static void provide(QQmlEngine* engine, const QString& name, QObject* object)
    {
        object->setParent(engine);
        engine->rootContext()->setContextProperty(name, object);
    }

    const QTemporaryDir m_settings; // the user's own are left alone
};

} // namespace pevrix

QUICK_TEST_MAIN_WITH_SETUP(qml, pevrix::Setup)

#include "QmlTests.moc"
