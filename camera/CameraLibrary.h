#pragma once

#include <filesystem>
#include <memory>

// Finds the virtual camera library at run time. The program does not link it, so that it runs
// without the library and a user may replace it. Any thread may call these functions.
namespace pevrix {

struct CameraLibraryUnload
{
    void operator()(void* library) const;
};

// A loaded library, or null. Unloads it.
using CameraLibrary = std::unique_ptr<void, CameraLibraryUnload>;

// What the library's file is called on this platform.
[[nodiscard]] std::filesystem::path cameraLibraryName();

// Loads the file of this name from the folder of the running executable, else from wherever the
// system looks for libraries, but for the current folder. Null when neither has it or it cannot be
// loaded.
[[nodiscard]] CameraLibrary loadCameraLibrary(const std::filesystem::path& name);

// The address of an exported function, to be cast to its type; null when there is none.
using CameraEntryPoint = void (*)();
[[nodiscard]] CameraEntryPoint cameraEntryPoint(const CameraLibrary& library, const char* name);

} // namespace pevrix
