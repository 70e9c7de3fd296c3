#include "video/CameraLibrary.h"

#include <array>
#include <string>
#include <string_view>
#include <windows.h>

namespace pevrix {
namespace {

// The running executable's folder with its closing backslash; empty when its path is too long for
// the buffer, which is then cut off in the middle of a name.
std::wstring executableFolder()
{
    std::array<wchar_t, MAX_PATH> buffer{};
    const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return {};
    }
    const std::wstring_view path(buffer.data(), length);
    return std::wstring(path.substr(0, path.rfind(L'\\') + 1));
}

} // namespace

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
    return CameraLibrary{LoadLibraryW(name.c_str())};
}

CameraEntryPoint cameraEntryPoint(const CameraLibrary& library, const char* name)
{
    return reinterpret_cast<CameraEntryPoint>(
        GetProcAddress(static_cast<HMODULE>(library.get()), name));
}

} // namespace pevrix
