#include "controller/system/CameraRegistration.h"

#include <windows.h>

namespace pevrix {
namespace {

constexpr wchar_t kRegistrationKey[] =
    L"CLSID\\{276143AA-B755-440E-834A-93CDEBCA334B}\\InprocServer32";

} // namespace

// Where the key points to is not looked at: a camera of another installation serves as well.
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

} // namespace pevrix
