#pragma once

#include <filesystem>

namespace pevrix {

// Whether an active rule of the system's firewall keeps connections from reaching the program with
// this full path; this is not the absence of a rule that lets them through. False for an empty path
// and when the firewall cannot be asked. Looks at every rule there is.
[[nodiscard]] bool isFirewallBlocking(const std::filesystem::path& applicationPath);

// Lets phones through the firewall by way of the setup helper beside the executable, if it is
// there. The system asks the user for administrator rights, and the call waits for the outcome, at
// most 30 seconds once they are granted; isFirewallBlocking() tells it.
void runFirewallHelper();

} // namespace pevrix
