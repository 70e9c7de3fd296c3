#include "video/FFmpegModule_linux.h"
#include "video/VideoBackEnd.h"

#include <dlfcn.h>
#include <system_error>

namespace pevrix {

namespace {

struct LoadedModule
{
    const FFmpegModule* module = nullptr;
    std::string problem;
};

// From the program's own folder alone, where it was built or installed with the program.
LoadedModule load()
{
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto file = executable.parent_path() / "libpevrix-ffmpeg.so";
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        return {nullptr, dlerror()};
    }
    const auto entry = reinterpret_cast<FFmpegModuleEntry>(dlsym(library, kFFmpegModuleEntryName));
    const FFmpegModule* module = entry != nullptr ? entry() : nullptr;
    if (module == nullptr || module->version != FFmpegModule::kVersion) {
        return {nullptr, file.string() + " belongs to another version"};
    }
    return {module, {}};
}

const LoadedModule& loadedModule()
{
    static const LoadedModule loaded = load();
    return loaded;
}

} // namespace

const FFmpegModule* ffmpegModule()
{
    return loadedModule().module;
}

std::string loadVideoBackEnd()
{
    return loadedModule().problem;
}

} // namespace pevrix
