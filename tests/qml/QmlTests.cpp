#include "qml/Interface.h"
#include "ui/Translator.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QFont>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>
#include <QtQuickTest/quicktest.h>

using namespace Qt::StringLiterals;

namespace pevrix {

// What a screen reader does and hears.
class ScreenReader : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList heard READ heard)

public:
    ScreenReader()
    {
        QAccessible::setActive(true);
        QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
            if (event->type() == QAccessible::Announcement) {
                s_heard << static_cast<QAccessibleAnnouncementEvent*>(event)->message();
            }
        });
    }

    [[nodiscard]] static QStringList heard() { return s_heard; }

    Q_INVOKABLE static void forget() { s_heard.clear(); }

    // False where the control does not offer it.
    Q_INVOKABLE static bool toggle(QObject* control)
    {
        auto* const interface = QAccessible::queryAccessibleInterface(control);
        auto* const actions = interface ? interface->actionInterface() : nullptr;
        const QString action = QAccessibleActionInterface::toggleAction();
        if (!actions || !actions->actionNames().contains(action)) {
            return false;
        }
        actions->doAction(action);
        return true;
    }

private:
    static inline QStringList s_heard;
};

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
        QDesktopServices::setUrlHandler(u"https"_s, this, "ignore"); // of links
    }

    void ignore(const QUrl&) {}

    void qmlEngineAvailable(QQmlEngine* engine)
    {
        provide(engine, u"app"_s, make(engine, u"ScriptedApp"_s));
        provide(engine, u"updater"_s, make(engine, u"ScriptedUpdater"_s));
        auto* translator = new Translator(QGuiApplication::instance(), engine, engine);
        engine->rootContext()->setContextProperty(u"i18n"_s, translator);
        provide(engine, u"screenReader"_s, new ScreenReader);
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
