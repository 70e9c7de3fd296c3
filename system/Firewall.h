#pragma once

#include <filesystem>

namespace pevrix {

// Whether an active rule of the system's firewall blocks connections to the program with this full
// path. A missing rule that would allow them does not count. False for an empty path and when the
// firewall cannot be asked. Looks at every rule that the firewall has.
[[nodiscard]] bool isFirewallBlocking(const std::filesystem::path& applicationPath);

// Starts the setup helper beside the executable, if it is there, to let phones through the
// firewall. The system asks the user for administrator rights, and the call waits for the outcome,
// at most 30 seconds once they are granted; isFirewallBlocking() tells whether it worked.
void runFirewallHelper();

} // namespace pevrix
