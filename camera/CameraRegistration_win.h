#pragma once

#include "camera/CameraRegistration.h"
#include "system/ElevatedLaunch_win.h"

namespace pevrix {

// runCameraRegistration() by the given calls. Returns the exit code of the system's tool,
// kNothingRan without a library beside the executable.
DWORD launchCameraRegistration(const LaunchCalls& calls, bool unregister);

// openCameraFolder() by the given calls.
std::filesystem::path openCameraFolder(const LaunchCalls& calls);

} // namespace pevrix
