#pragma once

#include <QHash>
#include <QRect>
#include <QString>

#include <chrono>
#include <memory>

namespace pevrix {

// What lasts between runs, typed, with its defaults and validation: the one place that knows the
// keys, but for "language", which is the Translator's. Lives in an INI file that is replaced whole
// at each write (a lock file and a rename), so that a crash leaves the old or the new one, and
// that only its owner may read where the platform has owner's rights. Values that are missing,
// damaged or out of range read as their defaults. GUI thread.
//
// A change is written at once, or shortly after the one before: phones that pair all the time do
// not keep the disk busy. Destruction writes what is left.
class Settings
{
public:
    // Between two writes.
    static constexpr std::chrono::milliseconds kWriteInterval{250};

    using DeviceMap = QHash<QString, QString>; // by device id

    // Ids are foreign text and become keys of the file: longer ones are used but not stored.
    static constexpr qsizetype kMaxDeviceIdLength = 512;

    // Where the main window is; without a valid geometry nothing is known.
    struct WindowState
    {
        QRect geometry; // while it is not maximised
        bool maximized = false;

        friend bool operator==(const WindowState&, const WindowState&) = default;
    };

    // The user's own file (organisation and application "Pevrix").
    [[nodiscard]] static QString userFile();

    // Without a file: the user's own one.
    explicit Settings(const QString& file = {});
    ~Settings();

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

    // The user has been told once where a hidden window goes.
    [[nodiscard]] bool trayHintShown() const;
    void setTrayHintShown();

    [[nodiscard]] WindowState windowState() const;
    void setWindowState(const WindowState& state);

    // The tokens of the phones that may connect. The phone server owns them; here they are stored.
    [[nodiscard]] DeviceMap trusted() const;
    void setTrusted(const DeviceMap& tokens);

    // The user's names for phones. The roster owns them; here they are stored.
    [[nodiscard]] DeviceMap names() const;
    void setNames(const DeviceMap& names);

    [[nodiscard]] QString fileName() const;

    // Writes what is not yet written.
    void flush();

private:
    class Store;

    void keepDamagedFile() const;
    DeviceMap group(QLatin1StringView name) const;
    void replaceGroup(QLatin1StringView name, const DeviceMap& values);

    std::unique_ptr<Store> m_store; // never null
};

} // namespace pevrix
