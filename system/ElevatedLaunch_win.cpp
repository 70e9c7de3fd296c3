#include "system/ElevatedLaunch_win.h"

#include "system/Firewall.h"
#include "system/Handle_win.h"

#include <array>
#include <atomic>

namespace pevrix {
namespace {

// Both programs are done in a moment; what takes longer hangs, and the window with it.
constexpr DWORD kLongestWaitMs = 30'000;

// Windows may hand on messages while its question stands, a second press on our button among them.
std::atomic<bool> s_isAsking = false;

class Asking
{
public:
    [[nodiscard]] bool isFirst() const { return m_isFirst; }
    Asking() = default;
    ~Asking()
    {
        if (m_isFirst) {
            s_isAsking = false;
        }
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

private:
    const bool m_isFirst = !s_isAsking.exchange(true);
};

} // namespace

std::wstring fileBeside(const LaunchCalls& calls, const wchar_t* name)
{
    const std::wstring folder = calls.executableFolder();
    if (folder.empty()) {
        return {};
    }
    std::wstring path = folder + name;
    return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES ? std::wstring() : path;
}

std::wstring systemProgram(const wchar_t* name)
{
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = GetSystemDirectoryW(folder.data(), MAX_PATH);
    return length == 0 || length >= MAX_PATH ? std::wstring()
                                             : std::wstring(folder.data(), length) + L'\\' + name;
}

DWORD runElevated(const LaunchCalls& calls, const std::wstring& file,
                  const std::wstring& parameters)
{
    const Asking asking;
    if (!asking.isFirst()) {
        return kNothingRan;
    }
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_NOCLOSEPROCESS;
    info.hwnd = GetActiveWindow(); // without one the question may come up behind it
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

DWORD launchFirewallHelper(const LaunchCalls& calls)
{
    const std::wstring helper = fileBeside(calls, L"pevrix-camsetup.exe");
    return helper.empty() ? kNothingRan : runElevated(calls, helper, L"--firewall");
}

void runFirewallHelper()
{
    launchFirewallHelper({});
}

} // namespace pevrix
