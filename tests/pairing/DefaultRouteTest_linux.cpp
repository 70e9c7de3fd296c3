#include "pairing/DefaultRoute.h"
#include "pairing/LanEndpoints.h"
#include "tools/doubles/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <net/if.h>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

// The kernel's own answer, as another program reads it: "8.8.8.8 via ... dev eth0 src ...", 0
// without a route.
int interfaceFromRouteTool()
{
    Program tool(u"ip"_s, {u"-o"_s, u"route"_s, u"get"_s, u"8.8.8.8"_s});
    const bool found = tool.awaitExit() == 0;
    const QString name = tool.output().section(u" dev "_s, 1).section(u' ', 0, 0);
    return found ? static_cast<int>(if_nametoindex(qPrintable(name))) : 0;
}

} // namespace

TEST(DefaultRoute, IsTheInterfaceThatTheKernelNamesOrZeroWithoutARoute)
{
    EXPECT_EQ(defaultRouteInterfaceIndex(), interfaceFromRouteTool());
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
