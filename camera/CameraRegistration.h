#pragma once

#include <filesystem>

namespace pevrix {

// Whether other programs find the camera only once it is registered.
[[nodiscard]] bool cameraNeedsRegistration();

// Whether the system knows the virtual camera, so that other programs can find it. Where nothing
// needs to be registered: whether the camera library can be found.
[[nodiscard]] bool isCameraRegistered();

// Registers the camera library that lies beside the executable, or removes its registration. The
// system asks the user for administrator rights, and the call waits for the outcome, at most 30
// seconds once they are granted; isCameraRegistered() tells whether it worked. Does nothing without
// a library, or where nothing needs to be registered.
void runCameraRegistration(bool unregister);

// The folder that runCameraRegistration() would register the library of, when others than the
// present user and administrators can change what is in there: what programs that read the camera
// load from then on. Empty when they cannot, without a library, and where nothing needs to be
// registered.
[[nodiscard]] std::filesystem::path openCameraFolder();

} // namespace pevrix
