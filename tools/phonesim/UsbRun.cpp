#include "tools/phonesim/UsbRun.h"

#include "tools/phonesim/Phone.h"

#include <QTcpSocket>
#include <QTimer>

#include <algorithm>

namespace pevrix {

UsbRun::UsbRun(const Options& options, const UsbOptions& usb, QObject* parent)
    : PhoneRun(options, usb.phones, parent)
    , m_usb(usb)
    , m_daemon({m_usb.refusedConnects, m_usb.corruptLength})
    , m_port(m_usb.port)
{
    connect(&m_daemon, &MuxDaemon::tunnelOpened, this, &UsbRun::onTunnel);
    connect(&m_daemon, &MuxDaemon::listenerCame, this, &UsbRun::onFirstListener,
            Qt::SingleShotConnection);
}

void UsbRun::begin()
{
    if (!m_daemon.appear(m_port)) {
        fail(ExitCode::CannotConnect,
             QStringLiteral("cannot play the usbmux daemon on port %1 of this machine: %2")
                 .arg(m_port)
                 .arg(m_daemon.errorString()));
        return;
    }
    m_port = m_daemon.port();
    say(QStringLiteral("usbmux daemon on port %1").arg(m_port));
    if (!m_usb.attachAfter) {
        std::ranges::for_each(m_seats, [this](Seat& seat) { attach(seat); });
    }
}

void UsbRun::onFirstListener()
{
    if (m_usb.attachAfter) {
        QTimer::singleShot(*m_usb.attachAfter, Qt::PreciseTimer, this, [this] {
            std::ranges::for_each(m_seats, [this](Seat& seat) { attach(seat); });
        });
    }
    if (m_usb.daemonDiesAfter) {
        QTimer::singleShot(*m_usb.daemonDiesAfter, Qt::PreciseTimer, this, &UsbRun::endDaemon);
    }
}

void UsbRun::onTunnel(int deviceId, QTcpSocket* socket)
{
    const auto seat = std::ranges::find(m_seats, deviceId, &Seat::deviceNumber);
    if (seat == m_seats.end() || seat->phone || seat->over) {
        socket->abort();
        socket->deleteLater();
        return;
    }
    connectPhone(*seat, socket, QStringLiteral("the PC over USB"), {});
}

void UsbRun::attach(Seat& seat)
{
    if (!seat.over) {
        seat.deviceNumber = m_daemon.attach(m_usb.networkAttached);
        say(seat.label + QStringLiteral("attached"));
    }
}

void UsbRun::onAccepted(Seat& seat)
{
    if (m_usb.detachAfter) {
        QTimer::singleShot(*m_usb.detachAfter, Qt::PreciseTimer, this,
                           [this, &seat, deviceId = seat.deviceNumber] {
                               if (seat.deviceNumber == deviceId) {
                                   detach(seat);
                               }
                           });
    }
}

void UsbRun::detach(Seat& seat)
{
    say(seat.label + QStringLiteral("detached"));
    m_daemon.detach(std::exchange(seat.deviceNumber, 0));
    if (m_usb.attachAgainAfter) {
        QTimer::singleShot(*m_usb.attachAgainAfter, Qt::PreciseTimer, this,
                           [this, &seat] { attach(seat); });
    }
    cutOff(seat);
}

void UsbRun::endDaemon()
{
    say(QStringLiteral("the daemon dies"));
    m_daemon.vanish();
    if (m_usb.daemonReturnsAfter) {
        QTimer::singleShot(*m_usb.daemonReturnsAfter, Qt::PreciseTimer, this,
                           &UsbRun::bringDaemonBack);
    }
    std::ranges::for_each(m_seats, [this](Seat& seat) { cutOff(seat); });
}

void UsbRun::bringDaemonBack()
{
    say(QStringLiteral("the daemon returns"));
    if (!m_daemon.appear(m_port)) {
        fail(ExitCode::CannotConnect,
             QStringLiteral("the daemon's port is taken: %1").arg(m_daemon.errorString()));
    }
}

// What the cut does to a phone with a connection is known once that connection has ended.
void UsbRun::cutOff(Seat& seat)
{
    if (seat.phone) {
        seat.cutOff = true;
    } else if (!seat.over) {
        onCutOff(seat);
    }
}

void UsbRun::onCutOff(Seat& seat)
{
    if (hasFuture(seat)) {
        m_daemon.reopen(seat.deviceNumber);
    } else {
        conclude(seat);
    }
}

bool UsbRun::hasFuture(const Seat& seat) const
{
    return (m_daemon.isThere() || m_usb.daemonReturnsAfter) &&
           (seat.deviceNumber != 0 || m_usb.attachAgainAfter);
}

void UsbRun::comeBack(Seat& seat)
{
    QTimer::singleShot(m_options.reconnectDelay, this, [this, &seat] {
        if (!seat.phone) {
            m_daemon.reopen(seat.deviceNumber);
        }
    });
}

void UsbRun::halt()
{
    m_daemon.vanish();
}

} // namespace pevrix
