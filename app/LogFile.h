#pragma once

#include <QString>

#include <mutex>

namespace pevrix {

// The program's log: bare message texts, one a line, appended to Pevrix/pevrix.log below a base
// folder and echoed to standard error. There is no rotation during a run; a file that has grown
// beyond kMaxLogBytes is deleted when the object is made. Any thread may call write(); lines stay
// whole.
//
// The temporary folder of Linux is everybody's: there nothing is written through a link, into a
// file or a folder of somebody else, and nobody else may read it.
class LogFile
{
public:
    // A log as large as this is kept; one byte more is deleted at the next start.
    static constexpr qint64 kMaxLogBytes = qint64{512} * 1024;

    // Creates the folder. Failure is not reported: messages then reach standard error only.
    explicit LogFile(const QString& baseFolder);

    [[nodiscard]] QString path() const { return m_path; }
    void write(const QString& message) const;

    // The folder named by LOCALAPPDATA, or the system's temporary folder where that is empty.
    [[nodiscard]] static QString defaultBaseFolder();

private:
    QString m_path;
    mutable std::mutex m_mutex;
};

// Sends every Qt message of the process to one LogFile in the default folder, which is prepared
// at the first message.
void installLogHandler();

} // namespace pevrix
