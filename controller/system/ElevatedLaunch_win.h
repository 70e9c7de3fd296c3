#pragma once

#include "video/ExecutableFolder_win.h"

#include <functional>
#include <windows.h>
// After windows.h, whose types it uses.
#include <shellapi.h>

namespace pevrix {

// What an elevated launch asks of the system.
struct LaunchCalls
{
    std::function<std::wstring()> executableFolder = pevrix::executableFolder;
    std::function<decltype(ShellExecuteExW)> shellExecute = ShellExecuteExW;
    std::function<decltype(WaitForSingleObject)> waitForSingleObject = WaitForSingleObject;
    std::function<decltype(GetExitCodeProcess)> getExitCodeProcess = GetExitCodeProcess;
};

// Each starts a program with administrator rights, for which the system asks the user, and waits
// at most 30 seconds for its end. Nothing is started when the file that it is about does not lie
// beside the executable. Returns the exit code, 1 when nothing ran; whether the system has changed
// is better asked of the system.
DWORD launchCameraRegistration(const LaunchCalls& calls, bool unregister);
DWORD launchFirewallHelper(const LaunchCalls& calls);

} // namespace pevrix
