#pragma once

// What the elevated setup helper does to the rules of the firewall.

#include <filesystem>
#include <string>
#include <windows.h>
// After windows.h, whose types it uses.
#include <netfw.h>

namespace pevrix {

// The rule that lets phones reach the program. It leaves out ports and addresses on purpose: the
// program takes any free port if its usual one is taken.
struct FirewallRule
{
    std::wstring name;
    std::wstring applicationName; // full path of the executable
    std::wstring description = L"Lets your phone reach Pevrix on this PC.";
    LONG protocol = NET_FW_IP_PROTOCOL_TCP;
    NET_FW_RULE_DIRECTION direction = NET_FW_RULE_DIR_IN;
    NET_FW_ACTION action = NET_FW_ACTION_ALLOW;
    LONG profiles = NET_FW_PROFILE2_ALL;
    VARIANT_BOOL enabled = VARIANT_TRUE;
};

// Puts a FirewallRule in the place of all rules for this program. False when either argument is
// empty, or when the firewall does not take the rule.
[[nodiscard]] bool addApplicationRule(const std::filesystem::path& applicationPath,
                                      const std::wstring& ruleName);

// Whether the firewall lists an active rule of this name that lets connections to this program in.
[[nodiscard]] bool hasApplicationRule(const std::filesystem::path& applicationPath,
                                      const std::wstring& ruleName);

} // namespace pevrix
