#pragma once

#include "tools/phonesim/Connector.h"
#include "tools/phonesim/ExitCode.h"
#include "tools/phonesim/FileSource.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/RunStats.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTimer>

#include <memory>

class QTcpSocket;

namespace pevrix {

class Phone;

/// A whole run of the simulated phone over the network: waits for the token file, connects, lets a
/// Phone live on the connection, comes back as often as the options say, and reports to the
/// console.
class PhoneRun final : public QObject
{
    Q_OBJECT

public:
    explicit PhoneRun(Options options, QObject* parent = nullptr);
    ~PhoneRun() override;

    /// Begins. done() may follow at once, so connect it through the event loop.
    void start();

    /// Ends the run as if its duration were over: the phone leaves in its plan's way.
    void stop();

Q_SIGNALS:
    void done(pevrix::ExitCode code);

private:
    [[nodiscard]] bool prepareFiles();
    void readToken();
    void connectToPc();
    void onConnected(QTcpSocket* socket, const QString& where);
    void onPhoneFinished(ExitCode code, const QString& reason);
    [[nodiscard]] std::unique_ptr<VideoSource> makeSource() const;
    void printProgress();
    void say(const QString& text) const;
    void complain(const QString& text) const;
    void end(ExitCode code);

    Options m_options;
    RunStats m_stats;
    QFile m_dump;
    std::shared_ptr<const Clip> m_clip; // null: the generated picture
    Connector m_connector;
    std::unique_ptr<Phone> m_phone;
    int m_returns = 0;
    bool m_stopping = false;
    bool m_ended = false;
    QTimer m_pause; // between looks at the token file, and between two connections
    QTimer m_duration;
    QTimer m_progress;
    QElapsedTimer m_clock; // since start()
    QElapsedTimer m_sinceLine;
    RunStats m_lineStats; // at the last progress line
};

} // namespace pevrix
