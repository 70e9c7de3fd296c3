#pragma once

#include "tools/doubles/Program.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace pevrix {

// A build of the program.
struct Build
{
    QString name; // "release"
    QString bin;  // the folder that holds the program and its camera library
    bool sanitized = false;
};

// What the program holds of the system.
struct Resources
{
    double megabytes = 0; // resident
    int descriptors = 0;
    int threads = 0;
};

// The program itself, with settings, log, recordings and pairing token in a folder of its own, on
// the display and in the media service of this process. Its window lies where clicks expect it.
class Subject
{
public:
    // What goes before it: a program that becomes the shell, and what the shell does, with the
    // folder for recordings as $1, before it becomes the program. For limits, mounts, networks.
    struct Before
    {
        QString shell;
        QStringList runner;
    };

    // Starts it.
    Subject(const Build& build, const QString& folder, const Before& before = {});

    // Listens for phones; everything else needs that.
    [[nodiscard]] bool awaitStart();

    [[nodiscard]] quint16 port() const { return m_port; }
    [[nodiscard]] QString token() const;
    [[nodiscard]] qint64 processId() const { return m_program.processId(); }
    [[nodiscard]] bool isRunning() const { return m_program.state() == QProcess::Running; }
    [[nodiscard]] Resources resources() const;
    [[nodiscard]] quint64 addressSpace() const; // in bytes
    [[nodiscard]] QString log() { return m_program.errors(); }
    [[nodiscard]] bool awaitLog(const QString& text, std::chrono::seconds limit);

    // Presses the button beside the preview, which is there while video is live.
    void pressRecord();
    // Full paths, the newest last.
    [[nodiscard]] QStringList recordings() const;
    // Waits until there are more than `before`; false when there are not, after 5 s.
    [[nodiscard]] bool awaitRecording(qsizetype before = 0) const;

    struct End
    {
        int code = -1; // -1: it crashed or had to be killed
        double ms = 0;
    };
    // Asks it to quit.
    [[nodiscard]] End quit();
    // At once.
    void kill() { m_program.end(); }

private:
    [[nodiscard]] static QStringList command(const QString& program, const QString& folder,
                                             const Before& before);
    [[nodiscard]] static QString prepared(const Build& build, const QString& folder);
    [[nodiscard]] static QProcessEnvironment environmentIn(const Build& build,
                                                           const QString& folder);

    const QString m_folder;
    const QStringList m_command;
    Program m_program;
    quint16 m_port = 0;
};

// What another program finds in a recording; nothing when it does not play to its end.
struct Playable
{
    int pictures = 0;
    double seconds = 0; // time of the last picture
};
[[nodiscard]] std::optional<Playable> play(const QString& file);

} // namespace pevrix
