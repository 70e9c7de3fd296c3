#pragma once

#include "system/ExecutableFolder_win.h"

#include <functional>
#include <windows.h>
// After windows.h, whose types it uses.
#include <shellapi.h>

namespace pevrix {

// What an elevated launch asks of the system.
struct LaunchCalls
{
    std::function<std::wstring()> executableFolder = pevrix::executableFolder;
    std::function<BOOL(SHELLEXECUTEINFOW*)> shellExecute = ShellExecuteExW;
    std::function<DWORD(HANDLE, DWORD)> waitForSingleObject = WaitForSingleObject;
    std::function<BOOL(HANDLE, DWORD*)> getExitCodeProcess = GetExitCodeProcess;
};

// What a launch returns when nothing ran.
inline constexpr DWORD kNothingRan = 1;

// The full path of a file beside the executable, and nowhere else, because it is going to run with
// administrator rights; empty when it is missing.
std::wstring fileBeside(const LaunchCalls& calls, const wchar_t* name);

// The full path of a program of the system's own folder: another one of its name may lie wherever
// else the system looks. Empty when that folder is not known.
std::wstring systemProgram(const wchar_t* name);

// Starts a program with administrator rights, for which the system asks the user, and waits at most
// 30 seconds for its end. Returns the exit code. To learn whether something has changed, ask the
// system, not the exit code. Runs nothing while another call waits for the user.
DWORD runElevated(const LaunchCalls& calls, const std::wstring& file,
                  const std::wstring& parameters);

// Runs the setup helper that lies beside the executable.
DWORD launchFirewallHelper(const LaunchCalls& calls);

} // namespace pevrix
