#include "system/Firewall.h"

namespace pevrix {

// Firewalls of Linux know ports, not programs; opening one is the administrator's business.
bool isFirewallBlocking(const std::filesystem::path& /*applicationPath*/)
{
    return false;
}

void runFirewallHelper() {}

} // namespace pevrix
