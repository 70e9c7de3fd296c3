#pragma once

#include <QHostAddress>
#include <QList>
#include <QString>
#include <QStringList>

namespace pevrix {

// A network interface as far as the choice of endpoints cares for it.
struct LanInterface
{
    QString name;  // as people see it: "Wi-Fi", "vEthernet (WSL)", "wlan0"
    int index = 0; // the system's number, 0 when it has none
    bool up = false;
    bool running = false; // a cable is plugged in, a network is joined
    bool loopback = false;
    QList<QHostAddress> addresses;
};

// The machine's interfaces, in the system's order.
[[nodiscard]] QList<LanInterface> readLanInterfaces();

// Chooses at most 4 different "ADDRESS:PORT" texts that a phone on the same network may reach,
// best first: the first private IPv4 address of the interface numbered `bestIndex` (0 for none),
// whatever it is; then those of all adapters that are not virtual, 192.168 before 10 before 172.
[[nodiscard]] QStringList rankLanEndpoints(const QList<LanInterface>& interfaces, int bestIndex,
                                           quint16 port);

// The ranking over the machine's interfaces as they are now; nothing is cached.
[[nodiscard]] QStringList findLanEndpoints(quint16 port);

} // namespace pevrix
