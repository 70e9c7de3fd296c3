#include "pairing/DefaultRoute.h"
#include "pairing/LanEndpoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <net/if.h>
#include <sstream>
#include <string>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

// The kernel's routing table read as text: the interface of the longest prefix that covers
// 8.8.8.8, the cheapest when several do; 0 when none does.
int interfaceFromRouteTable()
{
    std::ifstream table("/proc/net/route");
    std::string line;
    std::getline(table, line); // titles
    int found = 0;
    unsigned long foundMask = 0;
    unsigned long foundMetric = 0;
    while (std::getline(table, line)) {
        std::istringstream fields(line);
        std::string name;
        unsigned long destination, gateway, flags, references, uses, metric, mask;
        fields >> name >> std::hex >> destination >> gateway >> flags >> std::dec >> references >>
            uses >> metric >> std::hex >> mask;
        EXPECT_TRUE(fields) << line;
        const bool better =
            found == 0 || mask > foundMask || (mask == foundMask && metric < foundMetric);
        constexpr unsigned long kReject = 0x200;
        if ((0x08080808 & mask) == destination && better) {
            found = (flags & kReject) != 0 ? 0 : static_cast<int>(if_nametoindex(name.c_str()));
            foundMask = mask;
            foundMetric = metric;
        }
    }
    return found;
}

} // namespace

TEST(DefaultRoute, IsTheInterfaceThatTheRoutingTableNamesOrZeroWithoutARoute)
{
    EXPECT_EQ(defaultRouteInterfaceIndex(), interfaceFromRouteTable());
}

TEST(LanInterfaces, AreReadWithTheFlagsAndNumbersOfTheSystem)
{
    const QList<LanInterface> interfaces = readLanInterfaces();
    const auto loopback = std::ranges::find(interfaces, true, &LanInterface::loopback);
    ASSERT_NE(loopback, interfaces.end());
    EXPECT_EQ(loopback->name, u"lo"_s);
    EXPECT_EQ(loopback->index, static_cast<int>(if_nametoindex("lo")));

    if (const int index = defaultRouteInterfaceIndex(); index != 0) {
        const auto best = std::ranges::find(interfaces, index, &LanInterface::index);
        ASSERT_NE(best, interfaces.end());
        EXPECT_TRUE(best->up && best->running && !best->addresses.isEmpty());
    }
}
