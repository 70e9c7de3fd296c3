#pragma once

#include "controller/IPictureConsumer.h"
#include "system/Pace.h"
#include "video/Mp4Recorder.h"

#include <QSize>
#include <QString>

#include <functional>
#include <optional>

namespace pevrix {

// Why a recording ended that nobody stopped, or lacks its end.
enum class RecordingFailure
{
    DiskFull,
    FolderGone,
    WriteFailed, // the encoder or the disk, who knows
};

// Records the live pictures to a file, keeps the PC awake meanwhile, and logs what goes wrong. GUI
// thread.
class Recording final : public IPictureConsumer
{
public:
    using OnFailure = std::function<void(RecordingFailure)>;

    // `onFailure` hears of a recording that could not be written to its end, once it has ended.
    explicit Recording(OnFailure onFailure = {})
        : m_onFailure(std::move(onFailure))
    {}

    // Begins a new file; makes its folder when it is missing. False when a recording is running
    // already, and when nothing can be recorded there.
    [[nodiscard]] bool start(const QString& path, QSize size, int fps);

    // Completes the file. Safe when nothing is recorded.
    void stop();

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
    const OnFailure m_onFailure;
    Mp4Recorder m_recorder;
    QString m_path;
    std::optional<StayAwake> m_awake;
    bool m_started = false; // and not stopped yet, though it may have ended by itself
};

} // namespace pevrix
