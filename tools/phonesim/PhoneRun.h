#pragma once

#include "tools/phonesim/ExitCode.h"
#include "tools/phonesim/FileSource.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/RunStats.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

class QTcpSocket;

namespace pevrix {

class Phone;

/// A whole run of simulated phones: lets a Phone live on each connection, as often as the options
/// say, and reports to the console. Where connections come from is left to derived classes.
class PhoneRun : public QObject
{
    Q_OBJECT

public:
    ~PhoneRun() override;

    /// Begins. done() may follow at once, so connect it through the event loop.
    void start();

    /// Ends the run as if its duration were over: the phones leave in their plan's way.
    void stop();

Q_SIGNALS:
    void done(pevrix::ExitCode code);

protected:
    // One of the phones of the run, with all its connections.
    struct Seat
    {
        PhoneIdentity identity;
        QString label; // in front of what the phone says; empty when it is the only one
        RunStats stats;
        RunStats shownStats;            // at the last progress line
        std::unique_ptr<Phone> phone;   // while there is a connection
        ExitCode last = ExitCode::Done; // how the last connection ended
        int returns = 0;
        int deviceNumber = 0; // of a phone on a cable, as long as it is attached
        bool cutOff = false;  // the connection is being ended on purpose, but not by the phone
        bool over = false;
    };

    PhoneRun(Options options, int phones, QObject* parent);

    // The files are there: the first connections may be made.
    virtual void begin() = 0;

    // This phone may be connected again.
    virtual void comeBack(Seat& seat) = 0;

    // A connection was cut off, which counts neither as a failure nor as a return.
    virtual void onCutOff(Seat& seat) { comeBack(seat); }

    virtual void onAccepted(Seat&) {}

    // The run is over: no connection may be made any more.
    virtual void halt() = 0;

    // Lets the phone live on a connection. Without a token it waits for the PC to say it.
    void connectPhone(Seat& seat, QTcpSocket* socket, const QString& where,
                      const std::optional<QString>& token);

    // No further connection for this phone. Ends the run when it was the last one.
    void conclude(Seat& seat);

    void fail(ExitCode code, const QString& reason);
    void say(const QString& text) const;

    const Options m_options;
    std::vector<Seat> m_seats; // never changes its size
    QElapsedTimer m_clock;     // since start()

private:
    [[nodiscard]] bool prepareFiles();
    [[nodiscard]] std::unique_ptr<VideoSource> makeSource() const;
    void onPhoneFinished(Seat& seat, ExitCode code, const QString& reason);
    void printProgress();
    void complain(const QString& text) const;
    void end(ExitCode code);

    QFile m_dump;
    std::shared_ptr<const Clip> m_clip; // null: the generated picture
    bool m_stopping = false;
    bool m_ended = false;
    QTimer m_duration;
    QTimer m_progress;
    QElapsedTimer m_sinceLine;
};

} // namespace pevrix
