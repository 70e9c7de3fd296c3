#pragma once

#include "tools/phonesim/ExitCode.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/PhoneLink.h"
#include "tools/phonesim/VideoStreamer.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QIODevice;
class QTcpSocket;

namespace pevrix {

/// One connection of a phone, from its hello to its end, on a socket that is connected already;
/// how it came to be connected (over the network, through a USB tunnel) is the caller's business.
/// It answers pings, streams while the PC wants it, sends thumbnails, and does what its plan says.
/// Lives on one thread with an event loop.
class Phone final : public QObject
{
    Q_OBJECT

public:
    struct Setup
    {
        PhoneIdentity identity;
        std::optional<QString> token; ///< absent: the PC says it in a USB hello
        ConnectionPlan plan;
        VideoOptions video;
        std::unique_ptr<VideoSource> source;
    };

    /// Takes the socket over. `stats` and `dump` (which may be null) must outlive the phone.
    Phone(Setup setup, QTcpSocket* socket, RunStats& stats, QIODevice* dump,
          QObject* parent = nullptr);

    /// Sends the hello (or what the plan has in place of it), at once or after the PC's USB hello.
    void start();

    /// Ends the connection in the plan's way. Once begun, repeating it does nothing.
    void leave();

Q_SIGNALS:
    /// The PC answered the hello and took the phone.
    void accepted();

    /// Something a reader of the console wants to know.
    void event(const QString& text);

    /// Once, at the end. `reason` is empty when the phone left by itself.
    void finished(pevrix::ExitCode code, const QString& reason);

private:
    void greet();
    void takeUsbHello(const QByteArray& payload);
    [[nodiscard]] QByteArray helloPayload() const;
    void dispatch(const Message& message);
    void accept();
    void refuse(const QByteArray& payload);
    [[nodiscard]] bool wantsVideo() const { return m_active || m_ignoreActive; }
    void setActive(bool active);
    void setStalled(bool stalled);
    void showState();
    void startPlan();
    void sendThumbnail();
    void onFrameSent(QByteArrayView accessUnit, qint64 ptsUsec);
    void sendMalformed(QByteArrayView accessUnit, qint64 ptsUsec);
    void onClosed();
    void finishBy(std::chrono::milliseconds limit, ExitCode code, const QString& reason);
    void finish(ExitCode code, const QString& reason);

    const PhoneIdentity m_identity;
    std::optional<QString> m_token; // absent: not known yet
    const ConnectionPlan m_plan;
    const bool m_ignoreActive;
    RunStats& m_stats;
    PhoneLink m_link;
    VideoStreamer m_streamer;
    QTimer m_deadline; // for the PC to do what it must do next
    QTimer m_thumbnailTimer;
    bool m_accepted = false;
    bool m_active = false;
    bool m_stalled = false;
    bool m_leaving = false;
    bool m_finished = false;
};

} // namespace pevrix
