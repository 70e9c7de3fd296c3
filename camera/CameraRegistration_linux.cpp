#include "camera/CameraLibrary.h"
#include "camera/CameraRegistration.h"

namespace pevrix {

bool cameraNeedsRegistration()
{
    return false;
}

// The library announces its camera itself, for as long as the camera exists.
bool isCameraRegistered()
{
    return loadCameraLibrary(cameraLibraryName()) != nullptr;
}

void runCameraRegistration(bool /*unregister*/) {}

std::filesystem::path openCameraFolder()
{
    return {};
}

} // namespace pevrix
