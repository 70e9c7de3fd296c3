#pragma once

#include "camera/CameraRegistration.h"
#include "system/Firewall.h"

#include <functional>

namespace pevrix {

// What the controller asks of the operating system; tests put others in their place.
struct SystemFunctions
{
    bool cameraNeedsRegistration = pevrix::cameraNeedsRegistration();
    std::function<bool()> isCameraRegistered = pevrix::isCameraRegistered;
    std::function<void(bool unregister)> runCameraRegistration = pevrix::runCameraRegistration;
    std::function<std::filesystem::path()> openCameraFolder = pevrix::openCameraFolder;
    std::function<bool(const std::filesystem::path& applicationPath)> isFirewallBlocking =
        pevrix::isFirewallBlocking;
    std::function<void()> runFirewallHelper = pevrix::runFirewallHelper;
};

} // namespace pevrix
