#include "controller/Settings.h"

#include "controller/Log.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

constexpr auto kThemeMode = "theme/mode"_L1;
constexpr auto kRecordingFolder = "recording/folder"_L1;
constexpr auto kMinimizeToTray = "options/minimizeToTray"_L1;
constexpr auto kTrayHintShown = "options/trayHintShown"_L1;
constexpr auto kWindowGeometry = "window/geometry"_L1;
constexpr auto kWindowMaximized = "window/maximized"_L1;
constexpr auto kTrusted = "trusted"_L1;
constexpr auto kNames = "names"_L1;

// Beyond what screens are, alone or side by side.
constexpr int kMaxWindowSide = 32'768;
constexpr int kMaxWindowOffset = 1'000'000;

// Begins the keys of ids that the store would not give back as they are: it drops slashes that
// lead, trail or follow one another.
constexpr auto kEncodedId = "encoded:"_L1;

// A settings file has a few kilobytes; a far larger one is not read for inspection.
constexpr qint64 kMaxInspectedBytes = qint64{16} * 1024 * 1024;

QString keyOf(const QString& deviceId)
{
    if (!deviceId.startsWith(u'/') && !deviceId.endsWith(u'/') && !deviceId.contains("//"_L1) &&
        !deviceId.startsWith(kEncodedId)) {
        return deviceId;
    }
    QString encoded = deviceId;
    return kEncodedId + encoded.replace(u'%', "%25"_L1).replace(u'/', "%2F"_L1);
}

QString deviceIdOf(const QString& key)
{
    if (!key.startsWith(kEncodedId)) {
        return key;
    }
    return key.sliced(kEncodedId.size()).replace("%2F"_L1, "/"_L1).replace("%25"_L1, "%"_L1);
}

bool isIntactLine(QByteArrayView line)
{
    line = line.trimmed();
    return line.isEmpty() || line.startsWith(';') || line.contains('=') ||
           (line.startsWith('[') && line.endsWith(']'));
}

// QSettings takes any bytes as an INI file and silently drops what it cannot read.
bool looksDamaged(const QByteArray& bytes)
{
    if (bytes.isEmpty()) {
        return false;
    }
    if (bytes.contains('\0') || !bytes.endsWith('\n')) {
        return true;
    }
    const auto lines = bytes.split('\n');
    return !std::all_of(lines.begin(), lines.end(),
                        [](const QByteArray& line) { return isIntactLine(line); });
}

// The file holds the tokens of trusted phones. The store keeps the rights of the file that it
// replaces, but gives a new one to all.
void keepToOwner(const QString& name)
{
    constexpr QFile::Permissions kOwnerOnly = QFile::ReadOwner | QFile::WriteOwner;
    constexpr QFile::Permissions kOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                           QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const QFileInfo info(name);
    if (info.isFile() && (info.permissions() & kOthers)) {
        QFile::setPermissions(name, kOwnerOnly);
    } else if (!info.exists()) {
        QDir().mkpath(info.path());
        QFile file(name);
        static_cast<void>(file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kOwnerOnly));
    }
}

bool isPlausible(const QRect& window)
{
    return window.isValid() && window.width() <= kMaxWindowSide &&
           window.height() <= kMaxWindowSide && std::abs(window.x()) <= kMaxWindowOffset &&
           std::abs(window.y()) <= kMaxWindowOffset;
}

} // namespace

// Left to itself the store writes whenever the event loop runs after a change.
class Settings::Store final : public QSettings
{
public:
    Store()
        : QSettings(IniFormat, UserScope, u"Pevrix"_s, u"Pevrix"_s)
    {
        prepare();
    }
    explicit Store(const QString& file)
        : QSettings(file, IniFormat)
    {
        prepare();
    }
    ~Store() override { flush(); }

    // What has changed is written now, or as soon as that may be.
    void save()
    {
        m_changed = true;
        if (!m_pause.isActive()) {
            flush();
        }
    }

    void flush()
    {
        if (m_changed) {
            m_changed = false;
            keepToOwner(fileName());
            sync();
            m_pause.start();
        }
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::UpdateRequest) {
            return QSettings::event(event);
        }
        save();
        return true;
    }

private:
    void prepare()
    {
        m_pause.setSingleShot(true);
        m_pause.setInterval(kWriteInterval);
        connect(&m_pause, &QTimer::timeout, this, &Store::flush);
    }

    QTimer m_pause; // since the last write
    bool m_changed = false;
};

Settings::Settings(const QString& file)
    : m_store(file.isEmpty() ? std::make_unique<Store>() : std::make_unique<Store>(file))
{
    if (QFile::exists(fileName())) {
        keepToOwner(fileName());
    }
    keepDamagedFile();
}

Settings::~Settings() = default;

QString Settings::fileName() const
{
    return m_store->fileName();
}

void Settings::flush()
{
    m_store->flush();
}

QString Settings::userFile()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"Pevrix"_s, u"Pevrix"_s)
        .fileName();
}

// The next write would replace the damaged file and lose what a person could still save from it.
void Settings::keepDamagedFile() const
{
    QFile file(m_store->fileName());
    if (!file.exists()) {
        return;
    }
    const bool readable = file.open(QIODevice::ReadOnly);
    if (readable && file.size() <= kMaxInspectedBytes && !looksDamaged(file.readAll())) {
        return;
    }
    const QString copy = m_store->fileName() + u".damaged"_s;
    QFile::remove(copy);
    const bool kept = file.copy(copy);
    qCWarning(controllerLog,
              "Pevrix: the settings file cannot be read whole, defaults are used for the rest (%s)",
              kept ? qPrintable(u"a copy is kept as "_s + copy) : "it could not be copied");
}

int Settings::themeMode() const
{
    const int mode = m_store->value(kThemeMode, 0).toInt();
    return isThemeMode(mode) ? mode : 0;
}

void Settings::setThemeMode(int mode)
{
    m_store->setValue(kThemeMode, mode);
}

QString Settings::recordingFolder() const
{
    const QString stored = m_store->value(kRecordingFolder).toString();
    return stored.isEmpty()
               ? QStandardPaths::writableLocation(QStandardPaths::MoviesLocation) + u"/Pevrix"_s
               : stored;
}

void Settings::setRecordingFolder(const QString& folder)
{
    m_store->setValue(kRecordingFolder, folder);
}

bool Settings::minimizeToTray() const
{
    return m_store->value(kMinimizeToTray, true).toBool();
}

void Settings::setMinimizeToTray(bool on)
{
    m_store->setValue(kMinimizeToTray, on);
}

bool Settings::trayHintShown() const
{
    return m_store->value(kTrayHintShown, false).toBool();
}

void Settings::setTrayHintShown()
{
    m_store->setValue(kTrayHintShown, true);
}

Settings::WindowState Settings::windowState() const
{
    const QRect geometry = m_store->value(kWindowGeometry).toRect();
    return {.geometry = isPlausible(geometry) ? geometry : QRect(),
            .maximized = m_store->value(kWindowMaximized, false).toBool()};
}

void Settings::setWindowState(const WindowState& state)
{
    if (state != windowState()) {
        m_store->setValue(kWindowGeometry, state.geometry);
        m_store->setValue(kWindowMaximized, state.maximized);
    }
}

Settings::DeviceMap Settings::trusted() const
{
    return group(kTrusted);
}

void Settings::setTrusted(const DeviceMap& tokens)
{
    replaceGroup(kTrusted, tokens);
}

Settings::DeviceMap Settings::names() const
{
    return group(kNames);
}

void Settings::setNames(const DeviceMap& names)
{
    replaceGroup(kNames, names);
}

// All keys below the group, not its children only: an id with a slash in it is a deeper key.
Settings::DeviceMap Settings::group(QLatin1StringView name) const
{
    DeviceMap map;
    const QString prefix = name + u'/';
    const QStringList keys = m_store->allKeys();
    for (const QString& key : keys) {
        if (key.startsWith(prefix)) {
            map.insert(deviceIdOf(key.sliced(prefix.size())), m_store->value(key).toString());
        }
    }
    return map;
}

void Settings::replaceGroup(QLatin1StringView name, const DeviceMap& values)
{
    for (const QString& deviceId : group(name).keys()) {
        if (!values.contains(deviceId)) {
            m_store->remove(name + u'/' + keyOf(deviceId));
        }
    }
    // Looked at anew: "a" has taken "a/b" along.
    const DeviceMap stored = group(name);
    for (const auto& [deviceId, value] : values.asKeyValueRange()) {
        const bool fits = !deviceId.isEmpty() && deviceId.size() <= kMaxDeviceIdLength;
        if (fits && stored.value(deviceId) != value) {
            m_store->setValue(name + u'/' + keyOf(deviceId), value);
        }
    }
    // At once: a pairing must not be lost with a crash a moment later.
    m_store->save();
}

} // namespace pevrix
