#pragma once

#include <filesystem>
#include <memory>

// Finding the virtual camera library at run time; it is no link-time dependency, so that the
// program runs without it and a user may exchange it. Each function is safe from any thread.
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
// system looks for libraries. Null when neither has it or it cannot be loaded.
[[nodiscard]] CameraLibrary loadCameraLibrary(const std::filesystem::path& name);

// The address of an exported function, to be cast to its type; null when there is none.
using CameraEntryPoint = void (*)();
[[nodiscard]] CameraEntryPoint cameraEntryPoint(const CameraLibrary& library, const char* name);

} // namespace pevrix
