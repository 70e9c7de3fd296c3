#pragma once

#include "tools/phonesim/MuxDaemon.h"
#include "tools/phonesim/PhoneRun.h"

namespace pevrix {

/// Phones on a cable, and the usbmux daemon through which the PC comes to them. What happens to
/// cables and daemon follows the options.
class UsbRun final : public PhoneRun
{
    Q_OBJECT

public:
    /// `options.usb` must be there.
    UsbRun(const Options& options, const UsbOptions& usb, QObject* parent = nullptr);

private:
    void begin() override;
    void comeBack(Seat& seat) override;
    void onCutOff(Seat& seat) override;
    void onAccepted(Seat& seat) override;
    void halt() override;

    void onFirstListener();
    void onTunnel(int deviceId, QTcpSocket* socket);
    void attach(Seat& seat);
    void detach(Seat& seat);
    void endDaemon();
    void bringDaemonBack();
    void cutOff(Seat& seat);
    [[nodiscard]] bool hasFuture(const Seat& seat) const;

    const UsbOptions m_usb;
    MuxDaemon m_daemon;
    quint16 m_port; // the same one when the daemon returns
};

} // namespace pevrix
