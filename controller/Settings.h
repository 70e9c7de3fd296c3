#pragma once

#include <QHash>
#include <QSettings>
#include <QString>

#include <memory>

namespace pevrix {

// What lasts between runs, typed, with its defaults and validation: the one place that knows the
// keys, but for "language", which is the Translator's. Lives in an INI file that is replaced whole
// at each write (a lock file and a rename), so that a crash leaves the old or the new one. Values
// that are missing, damaged or out of range read as their defaults. GUI thread.
class Settings
{
public:
    using DeviceMap = QHash<QString, QString>; // by device id

    // Ids are foreign text and become keys of the file: longer ones are used but not stored.
    static constexpr qsizetype kMaxDeviceIdLength = 512;

    // Without a file: the user's own one (organisation and application "Pevrix").
    explicit Settings(const QString& file = {});

    // 0 follows the platform, 1 light, 2 dark.
    [[nodiscard]] int themeMode() const;
    void setThemeMode(int mode);
    [[nodiscard]] static bool isThemeMode(int mode) { return mode >= 0 && mode <= 2; }

    // Where recordings go; the folder Pevrix in the user's movies folder unless chosen otherwise.
    [[nodiscard]] QString recordingFolder() const;
    void setRecordingFolder(const QString& folder);

    // Closing the window hides it.
    [[nodiscard]] bool minimizeToTray() const;
    void setMinimizeToTray(bool on);

    // Phones that may connect, with the token that each was paired with.
    [[nodiscard]] DeviceMap trusted() const;
    void trust(const QString& deviceId, const QString& token);
    void forgetTrusted();

    // The user's names for phones; an empty name removes one.
    [[nodiscard]] DeviceMap names() const;
    void setName(const QString& deviceId, const QString& name);

    [[nodiscard]] QString fileName() const { return m_store->fileName(); }

private:
    void keepDamagedFile() const;
    DeviceMap group(QLatin1StringView name) const;
    void writeDevice(QLatin1StringView group, const QString& deviceId, const QString& value);

    std::unique_ptr<QSettings> m_store; // never null
};

} // namespace pevrix
