#pragma once

#include "controller/IPictureConsumer.h"
#include "system/Pace.h"
#include "video/Mp4Recorder.h"

#include <QElapsedTimer>
#include <QSize>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace pevrix {

// How a recording went, for whoever tells the user.
struct RecordingReport
{
    enum class Outcome
    {
        Saved,       // it was stopped
        Resized,     // the same, by pictures of another size
        Empty,       // no picture came: there is no file
        DiskFull,    // from here on: it ended by itself, or could not start
        FolderGone,  // or not to be written to
        WriteFailed, // the encoder or the disk, who knows
    };

    Outcome outcome = Outcome::Saved;
    bool started = false; // the file may hold the pictures up to the end
    QString path;
    int seconds = 0; // that it lasted

    friend bool operator==(const RecordingReport&, const RecordingReport&) = default;
};

// What the interface knows it by: "saved", "resized", "empty", "diskFull", "folderGone" or
// "writeFailed".
[[nodiscard]] QString outcomeName(RecordingReport::Outcome outcome);

// The path of a recording that begins now, in `folder`: named by the time, and so that a second one
// within the same second does not replace the first.
[[nodiscard]] QString newRecordingPath(const QString& folder);

// Records the live pictures to a file, keeps the PC awake meanwhile, and logs what goes wrong. GUI
// thread.
class Recording final : public IPictureConsumer
{
public:
    using Report = std::function<void(const RecordingReport&)>;

    // `report` is called at the end of each recording, and for each that could not start.
    explicit Recording(Report report = {})
        : m_report(std::move(report))
    {}

    // Begins a new file; makes its folder when it is missing. False when a recording is running
    // already, and when nothing can be recorded there.
    [[nodiscard]] bool start(const QString& path, QSize size, int fps);

    // Completes the file. Safe when nothing is recorded. `outcome` is what is reported unless the
    // recording has ended by itself.
    void stop(RecordingReport::Outcome outcome = RecordingReport::Outcome::Saved);

    // To be called every now and then: ends a recording that cannot be written any further.
    void check();

    // Whether pictures go into a file: false also once it could not be written any further.
    [[nodiscard]] bool isRunning() const { return m_recorder.isOpen(); }

    // Of the recording's pictures; empty when nothing is recorded.
    [[nodiscard]] QSize size() const;

    // Full path of the last recording that was started; it may still run.
    [[nodiscard]] QString path() const { return m_path; }

    // A picture of another size is left out.
    void show(const SharedPicture& picture) override;

private:
    void report(RecordingReport::Outcome outcome, bool started, const QString& path) const;

    const Report m_report;
    Mp4Recorder m_recorder;
    QElapsedTimer m_clock;
    QString m_path;
    std::optional<StayAwake> m_awake;
    bool m_hasPicture = false;
    bool m_started = false; // and not stopped yet, though it may have ended by itself
};

} // namespace pevrix
