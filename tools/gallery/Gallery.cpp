#include "tools/gallery/Gallery.h"

#include "pairing/Pairing.h"
#include "tools/gallery/Scene.h"

#include <QDir>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickWindow>
#include <QTest>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

// Nothing moves in the pictures, but a few things appear only after a moment: a hint, the word that
// video is awaited.
constexpr int kSettleMs = 600;

enum ThemeMode
{
    Light = 1,
    Dark = 2
};

} // namespace

Gallery::Gallery(const Options& options)
    : m_options(options)
{
    m_app = make(u"ScriptedApp"_s);
    m_updater = make(u"ScriptedUpdater"_s);
    const PairingInfo pairing = describePairing({}, {}, {}, 8788, true);
    m_app->setProperty("qrDataUrl", pairing.qrDataUrl);
    m_app->setProperty("pairAddress", pairing.addressText);
    m_app->setProperty("pcName", pairing.pcName);
    m_app->setProperty("themeMode", options.dark ? Dark : Light);
    m_engine.rootContext()->setContextProperty(u"app"_s, m_app.get());
    m_engine.rootContext()->setContextProperty(u"updater"_s, m_updater.get());
}

Gallery::~Gallery() = default;

bool Gallery::load()
{
    // From the beginning, so that no pulse is under way.
    m_engine.setInitialProperties({{u"captureMode"_s, true}});
    m_engine.load(QUrl(u"qrc:/qml/Main.qml"_s));
    m_window = qobject_cast<QQuickWindow*>(m_engine.rootObjects().value(0));
    if (m_window == nullptr) {
        return false;
    }
    m_views = make(u"Views"_s, {{u"window"_s, QVariant::fromValue<QObject*>(m_window)},
                                {u"app"_s, QVariant::fromValue(m_app.get())},
                                {u"updater"_s, QVariant::fromValue(m_updater.get())}});
    m_window->resize(m_options.size);
    return true;
}

QStringList Gallery::takePictures()
{
    QStringList failed;
    const QDir folder(m_options.folder);
    const QLatin1StringView theme = m_options.dark ? "dark"_L1 : "light"_L1;
    const QStringList names =
        m_options.views.isEmpty() ? m_views->property("names").toStringList() : m_options.views;
    const QVariant scene = QVariant::fromValue(paintScene());
    for (const QString& name : names) {
        QMetaObject::invokeMethod(m_views.get(), "arrange", Q_ARG(QString, name));
        QMetaObject::invokeMethod(m_app.get(), "frameReady", Q_ARG(QVariant, scene));
        QTest::qWait(kSettleMs);
        const QString file = folder.filePath(name + m_options.suffix + u'-' + theme + ".png"_L1);
        if (!folder.mkpath(u"."_s) || !m_window->grabWindow().save(file)) {
            failed.append(file);
        }
    }
    return failed;
}

std::unique_ptr<QObject> Gallery::make(const QString& component, const QVariantMap& properties)
{
    QQmlComponent made(&m_engine, QUrl("qrc:/gallery/"_L1 + component + ".qml"_L1));
    std::unique_ptr<QObject> object(made.createWithInitialProperties(properties));
    if (!object) {
        qFatal("%s", qPrintable(made.errorString()));
    }
    return object;
}

} // namespace pevrix
