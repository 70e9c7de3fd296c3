// pevrix-camsetup: what Pevrix needs administrator rights for. The program starts it; so may an
// installer or an administrator.
#include "system/Console.h"
#include "system/ExecutableFolder_win.h"
#include "system/FirewallRules_win.h"

#include <string_view>
#include <windows.h>

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongArguments = 2;

constexpr wchar_t kRuleName[] = L"Pevrix";

constexpr const char* kUsage =
    "Usage: pevrix-camsetup --firewall\n"
    "\n"
    "  --firewall  lets phones reach Pevrix, that is, the pevrix.exe in the folder of this\n"
    "              program, through the Windows Firewall; other rules for it are removed\n"
    "  --help      shows this text\n"
    "\n"
    "Exit code: 0 done, 1 the firewall does not have the rule, 2 wrong arguments\n";

int allowThroughFirewall()
{
    const std::wstring folder = pevrix::executableFolder();
    if (folder.empty()) {
        return kFailed;
    }
    const std::wstring program = folder + L"pevrix.exe";
    return pevrix::addApplicationRule(program, kRuleName) &&
                   pevrix::hasApplicationRule(program, kRuleName)
               ? kDone
               : kFailed;
}

} // namespace

// Not a program of the console: that would flash a window of its own whenever Pevrix starts it.
int main(int argc, char** argv)
{
    // Nothing that lies beside an elevated program may get into it.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    const std::string_view mode = argc == 2 ? argv[1] : "";
    if (mode == "--firewall") {
        return allowThroughFirewall();
    }
    pevrix::printToConsole(kUsage);
    return mode == "--help" ? kDone : kWrongArguments;
}
