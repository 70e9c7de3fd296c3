#include "controller/AppController.h"
#include "qml/Interface.h"
#include "ui/Translator.h"
#include "ui/UpdateChecker.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QFont>
#include <QGuiApplication>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>
#include <QtQuickTest/quicktest.h>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

// What lies outside the interface: a screen reader, a browser, and the classes that are scripted
// here.
class Outside : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList heard MEMBER m_heard)
    Q_PROPERTY(QStringList opened MEMBER m_opened)

public:
    Outside()
    {
        s_only = this;
        QAccessible::setActive(true);
        QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
            if (event->type() == QAccessible::Announcement) {
                s_only->m_heard << static_cast<QAccessibleAnnouncementEvent*>(event)->message();
            }
        });
        QDesktopServices::setUrlHandler(u"https"_s, this, "open");
    }

    Q_INVOKABLE void open(const QUrl& page) { m_opened << page.toString(); }

    Q_INVOKABLE void forget()
    {
        m_heard.clear();
        m_opened.clear();
    }

    // By the screen reader. False where the control does not offer it.
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

    // The names of what the program's own object has for the interface.
    Q_INVOKABLE static QStringList membersOf(const QString& name)
    {
        const QMetaObject& real =
            name == "app"_L1 ? AppController::staticMetaObject : UpdateChecker::staticMetaObject;
        QStringList members;
        for (int i = 0; i < real.propertyCount(); ++i) {
            members << QString::fromLatin1(real.property(i).name());
        }
        for (int i = 0; i < real.methodCount(); ++i) {
            members << QString::fromLatin1(real.method(i).name());
        }
        return members;
    }

private:
    static inline Outside* s_only = nullptr;
    QStringList m_heard;
    QStringList m_opened;
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
        m_outside.emplace();
    }

    void qmlEngineAvailable(QQmlEngine* engine)
    {
        for (const auto& [name, component] : {std::pair(u"app"_s, "ScriptedApp"_L1),
                                              std::pair(u"updater"_s, "ScriptedUpdater"_L1)}) {
            QQmlComponent made(engine, QUrl("qrc:/gallery/"_L1 + component + ".qml"_L1));
            QObject* const object = made.create();
            object->setParent(engine);
            engine->rootContext()->setContextProperty(name, object);
        }
        auto* translator = new Translator(QGuiApplication::instance(), engine, engine);
        engine->rootContext()->setContextProperty(u"i18n"_s, translator);
        engine->rootContext()->setContextProperty(u"outside"_s, &*m_outside);
    }

private:
    const QTemporaryDir m_settings; // the user's own are left alone
    std::optional<Outside> m_outside;
};

} // namespace pevrix

QUICK_TEST_MAIN_WITH_SETUP(qml, pevrix::Setup)

#include "QmlTests.moc"
