#include "camera/CameraLibrary.h"
#include "system/ExecutableFolder_win.h"

#include <windows.h>

namespace pevrix {

void CameraLibraryUnload::operator()(void* library) const
{
    FreeLibrary(static_cast<HMODULE>(library));
}

std::filesystem::path cameraLibraryName()
{
    return L"softcam.dll";
}

CameraLibrary loadCameraLibrary(const std::filesystem::path& name)
{
    const std::wstring folder = executableFolder();
    if (!folder.empty()) {
        if (CameraLibrary library{LoadLibraryW((folder + name.native()).c_str())}) {
            return library;
        }
    }
    SetDllDirectoryW(L""); // not in the folder that the program happens to be started in
    return CameraLibrary{LoadLibraryW(name.c_str())};
}

CameraEntryPoint cameraEntryPoint(const CameraLibrary& library, const char* name)
{
    return reinterpret_cast<CameraEntryPoint>(
        GetProcAddress(static_cast<HMODULE>(library.get()), name));
}

} // namespace pevrix
