#include "pairing/LanEndpoints.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

LanInterface adapter(const char* name, int index, std::initializer_list<const char*> addresses)
{
    LanInterface result{QString::fromUtf8(name), index, true, true, false, {}};
    for (const char* address : addresses) {
        result.addresses.append(QHostAddress(QString::fromLatin1(address)));
    }
    return result;
}

LanInterface with(LanInterface changed, bool LanInterface::* flag, bool value)
{
    changed.*flag = value;
    return changed;
}

struct Case
{
    const char* name;
    QList<LanInterface> interfaces;
    int bestIndex;
    const char* expected;
};

} // namespace

TEST(LanEndpoints, AreChosenAndOrderedByRouteAdapterAndPrefix)
{
    const LanInterface wifi = adapter("Wi-Fi", 3, {"10.0.0.5"});
    const LanInterface ethernet = adapter("Ethernet", 4, {"192.168.1.7"});
    const LanInterface virtualSwitch = adapter("vEthernet (WSL)", 9, {"172.28.0.1"});
    const Case cases[] = {
        {"no interface", {}, 0, ""},
        {"prefixes rank 192.168, 10, 172",
         {adapter("a", 1, {"172.16.0.1"}), wifi, ethernet},
         0,
         "192.168.1.7:8788,10.0.0.5:8788,172.16.0.1:8788"},
        {"the default route comes first", {ethernet, wifi}, 3, "10.0.0.5:8788,192.168.1.7:8788"},
        {"a virtual adapter counts on the default route only",
         {ethernet, virtualSwitch},
         9,
         "172.28.0.1:8788,192.168.1.7:8788"},
        {"virtual adapters elsewhere are ignored, whatever the case of their names",
         {virtualSwitch, adapter("my HYPER-V switch", 10, {"10.0.0.9"}), wifi,
          adapter("virtualbox host-only", 11, {"10.0.0.8"}), adapter("docker0", 12, {"10.0.0.7"}),
          adapter("Npcap Loopback Adapter", 13, {"10.0.0.6"}), adapter("wsl", 14, {"10.0.0.4"}),
          adapter("Bluetooth Network Connection", 15, {"10.0.0.3"})},
         3,
         "10.0.0.5:8788"},
        {"a virtual best adapter gives its first private address only",
         {adapter("VMware Network Adapter", 2, {"fe80::1", "8.8.4.4", "10.1.1.1", "10.1.1.2"})},
         2,
         "10.1.1.1:8788"},
        {"a real best adapter gives its further addresses as candidates",
         {adapter("Wi-Fi", 2, {"172.20.0.1", "10.1.1.2"}), ethernet},
         2,
         "172.20.0.1:8788,192.168.1.7:8788,10.1.1.2:8788"},
        {"without a default route, an adapter without a number is not best",
         {adapter("Ethernet", 0, {"172.20.0.1"}), ethernet},
         0,
         "192.168.1.7:8788,172.20.0.1:8788"},
        {"a best index that no adapter has changes nothing", {ethernet}, 77, "192.168.1.7:8788"},
        {"an adapter that is down, idle or loopback gives nothing, even on the default route",
         {with(wifi, &LanInterface::up, false), with(wifi, &LanInterface::running, false),
          with(wifi, &LanInterface::loopback, true)},
         3,
         ""},
        {"only IPv4 of the three prefixes counts",
         {adapter("Ethernet", 1,
                  {"fd00::1", "fe80::1", "::ffff:192.168.1.1", "169.254.3.4", "127.0.0.1",
                   "192.169.1.1", "100.64.0.1", "1.10.0.1", "172.200.0.1"})},
         1,
         "172.200.0.1:8788"},
        {"an address seen twice appears once",
         {wifi, adapter("Bridge", 8, {"10.0.0.5", "192.168.1.7"}), ethernet},
         3,
         "10.0.0.5:8788,192.168.1.7:8788"},
        {"six addresses give four, the best of them kept although it ranks last",
         {adapter("a", 1, {"10.0.0.1"}), adapter("b", 2, {"10.0.0.2"}), ethernet,
          adapter("c", 5, {"192.168.1.8"}), adapter("d", 6, {"172.16.0.1"}),
          adapter("e", 7, {"172.17.0.1"})},
         7,
         "172.17.0.1:8788,192.168.1.7:8788,192.168.1.8:8788,10.0.0.1:8788"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(rankLanEndpoints(c.interfaces, c.bestIndex, 8788).join(u',').toStdString(),
                  c.expected)
            << c.name;
    }
}
