#include "camera/CameraLibrary.h"

#include <dlfcn.h>
#include <system_error>

namespace pevrix {

void CameraLibraryUnload::operator()(void* library) const
{
    dlclose(library);
}

std::filesystem::path cameraLibraryName()
{
    return "libsoftcam.so";
}

CameraLibrary loadCameraLibrary(const std::filesystem::path& name)
{
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error) {
        const auto beside = executable.parent_path() / name;
        if (CameraLibrary library{dlopen(beside.c_str(), RTLD_NOW | RTLD_LOCAL)}) {
            return library;
        }
    }
    return CameraLibrary{dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL)};
}

CameraEntryPoint cameraEntryPoint(const CameraLibrary& library, const char* name)
{
    return reinterpret_cast<CameraEntryPoint>(dlsym(library.get(), name));
}

} // namespace pevrix
