#include "camera/CameraRegistration_win.h"

#include "system/OthersRights_win.h"

#include <algorithm>
#include <array>

namespace pevrix {
namespace {

constexpr wchar_t kRegistrationKey[] =
    L"CLSID\\{276143AA-B755-440E-834A-93CDEBCA334B}\\InprocServer32";

} // namespace

bool cameraNeedsRegistration()
{
    return true;
}

// The path in the key is not checked: the camera of another installation is just as good.
bool isCameraRegistered()
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, kRegistrationKey, 0, KEY_READ | KEY_WOW64_64KEY, &key) !=
        ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

DWORD launchCameraRegistration(const LaunchCalls& calls, bool unregister)
{
    const std::wstring library = fileBeside(calls, L"softcam.dll");
    const std::wstring tool = systemProgram(L"regsvr32.exe");
    if (library.empty() || tool.empty()) {
        return kNothingRan;
    }
    return runElevated(calls, tool, (unregister ? L"/s /u \"" : L"/s \"") + library + L'"');
}

void runCameraRegistration(bool unregister)
{
    launchCameraRegistration({}, unregister);
}

std::filesystem::path openCameraFolder(const LaunchCalls& calls)
{
    const std::filesystem::path library = fileBeside(calls, L"softcam.dll");
    if (library.empty()) {
        return {};
    }
    // The library registers the one for 32-bit programs, too.
    const auto folder = library.parent_path();
    const std::array all = {folder, library, folder / L"x86", folder / L"x86" / L"softcam.dll"};
    const bool isOpen = std::ranges::any_of(all, [](const auto& path) {
        return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES && canOthersChange(path);
    });
    return isOpen ? folder : std::filesystem::path();
}

std::filesystem::path openCameraFolder()
{
    return openCameraFolder(LaunchCalls{});
}

} // namespace pevrix
