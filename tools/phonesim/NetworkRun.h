#pragma once

#include "tools/phonesim/Connector.h"
#include "tools/phonesim/PhoneRun.h"

namespace pevrix {

/// One phone in the network: it waits for the token file and connects to the PC.
class NetworkRun final : public PhoneRun
{
    Q_OBJECT

public:
    explicit NetworkRun(const Options& options, QObject* parent = nullptr);

private:
    void begin() override;
    void comeBack(Seat& seat) override;
    void halt() override;
    void readToken();
    void connectToPc();
    void pauseBefore(void (NetworkRun::*next)(), std::chrono::milliseconds pause);

    QString m_token;
    Connector m_connector;
    QTimer m_pause; // between looks at the token file, and between two connections
};

} // namespace pevrix
