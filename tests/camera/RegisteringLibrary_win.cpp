// A library that regsvr32 can register, below a key of the tests' own instead of where COM looks.
#include "tests/camera/RegistrationKey_win.h"

extern "C" __declspec(dllexport) HRESULT __stdcall DllRegisterServer()
{
    HKEY key = nullptr;
    const LSTATUS status = RegCreateKeyExW(
        HKEY_CURRENT_USER,
        PEVRIX_CLASSES L"\\CLSID\\{276143AA-B755-440E-834A-93CDEBCA334B}\\InprocServer32", 0,
        nullptr, 0, KEY_WRITE | KEY_WOW64_64KEY, nullptr, &key, nullptr);
    RegCloseKey(key);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

extern "C" __declspec(dllexport) HRESULT __stdcall DllUnregisterServer()
{
    return HRESULT_FROM_WIN32(
        static_cast<DWORD>(RegDeleteTreeW(HKEY_CURRENT_USER, PEVRIX_CLASSES L"\\CLSID")));
}
