#include "controller/system/ElevatedLaunch_win.h"

#include "controller/system/CameraRegistration.h"
#include "controller/system/Firewall.h"

#include <memory>

namespace pevrix {
namespace {

// Both programs are done in a moment; what takes longer hangs, and the window with it.
constexpr DWORD kLongestWaitMs = 30'000;

constexpr DWORD kNothingRan = 1;

struct HandleClose
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, HandleClose>;

// The full path of a file beside the executable, and nowhere else, because it is going to run with
// administrator rights; empty when it is missing.
std::wstring fileBeside(const LaunchCalls& calls, const wchar_t* name)
{
    const std::wstring folder = calls.executableFolder();
    if (folder.empty()) {
        return {};
    }
    std::wstring path = folder + name;
    return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES ? std::wstring() : path;
}

DWORD runElevated(const LaunchCalls& calls, const std::wstring& file,
                  const std::wstring& parameters)
{
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_NOCLOSEPROCESS;
    info.lpVerb = L"runas";
    info.lpFile = file.c_str();
    info.lpParameters = parameters.c_str();
    info.nShow = SW_SHOWNORMAL;
    DWORD exitCode = kNothingRan;
    if (calls.shellExecute(&info) && info.hProcess != nullptr) {
        const UniqueHandle process(info.hProcess);
        calls.waitForSingleObject(process.get(), kLongestWaitMs);
        calls.getExitCodeProcess(process.get(), &exitCode);
    }
    return exitCode;
}

} // namespace

DWORD launchCameraRegistration(const LaunchCalls& calls, bool unregister)
{
    const std::wstring library = fileBeside(calls, L"softcam.dll");
    if (library.empty()) {
        return kNothingRan;
    }
    return runElevated(calls, L"regsvr32", (unregister ? L"/s /u \"" : L"/s \"") + library + L'"');
}

DWORD launchFirewallHelper(const LaunchCalls& calls)
{
    const std::wstring helper = fileBeside(calls, L"pevrix-camsetup.exe");
    return helper.empty() ? kNothingRan : runElevated(calls, helper, L"--firewall");
}

void runCameraRegistration(bool unregister)
{
    launchCameraRegistration({}, unregister);
}

void runFirewallHelper()
{
    launchFirewallHelper({});
}

} // namespace pevrix
