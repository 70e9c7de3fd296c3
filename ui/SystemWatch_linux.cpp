// Desktops tell their settings through the portal's service on the session bus.
#include "ui/SystemWatch.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QObject>
#include <QVariantMap>

#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

constexpr auto kService = "org.freedesktop.portal.Desktop"_L1;
constexpr auto kPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto kInterface = "org.freedesktop.portal.Settings"_L1;
constexpr auto kAppearance = "org.freedesktop.appearance"_L1;
constexpr auto kGnome = "org.gnome.desktop.interface"_L1; // where it has no newer key

// Asked for a bus that is not there, the library would start one of its own.
bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
}

class PortalWatch final : public QObject, public ISystemWatch
{
    Q_OBJECT

public:
    explicit PortalWatch(std::function<void(const SystemWishes&)> callback)
        : m_callback(std::move(callback))
    {
        if (!hasSessionBus()) {
            return;
        }
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.connect(kService, kPath, kInterface, u"SettingChanged"_s, this,
                    SLOT(onSettingChanged(QString, QString, QDBusVariant)));
        QDBusMessage question =
            QDBusMessage::createMethodCall(kService, kPath, kInterface, u"ReadAll"_s);
        question << QStringList{kAppearance, kGnome};
        auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
            onAnswer(answer->reply());
            answer->deleteLater();
        });
    }

private Q_SLOTS:
    void onSettingChanged(const QString& group, const QString& key, const QDBusVariant& value)
    {
        take(group, key, value.variant());
        tell();
    }

private:
    void onAnswer(const QDBusMessage& answer)
    {
        if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "a{sa{sv}}"_L1) {
            return; // no portal, or none that we know
        }
        QMap<QString, QVariantMap> groups;
        answer.arguments().constFirst().value<QDBusArgument>() >> groups;
        for (const auto& [group, settings] : std::as_const(groups).asKeyValueRange()) {
            for (const auto& [key, value] : settings.asKeyValueRange()) {
                take(group, key, value);
            }
        }
        tell();
    }

    void take(const QString& group, const QString& key, const QVariant& value)
    {
        if (group == kAppearance && key == "contrast"_L1) {
            m_contrast = value.toUInt() == 1;
        } else if (group == kAppearance && key == "reduced-motion"_L1) {
            m_reducedMotion = value.toUInt() == 1;
        } else if (group == kGnome && key == "enable-animations"_L1) {
            m_animations = value.toBool();
        }
    }

    void tell()
    {
        SystemWishes wishes;
        wishes.lessMotion = m_reducedMotion || !m_animations;
        wishes.moreContrast = m_contrast;
        m_callback(wishes);
    }

    const std::function<void(const SystemWishes&)> m_callback;
    bool m_contrast = false;
    bool m_reducedMotion = false;
    bool m_animations = true;
};

} // namespace

std::unique_ptr<ISystemWatch> watchSystem(std::function<void(const SystemWishes&)> callback)
{
    return std::make_unique<PortalWatch>(std::move(callback));
}

} // namespace pevrix

#include "SystemWatch_linux.moc"
