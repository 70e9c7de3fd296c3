#pragma once

#include "controller/AppController.h"

#include <QDir>

#include <chrono>

namespace pevrix {

inline constexpr quint16 kNobodysPort = 1; // where no usbmux daemon is

// A controller with a port of its own, all its files in the folder, and the tests' camera library.
inline ControllerOptions testOptions(const QString& folder, quint16 usbPort)
{
    ControllerOptions options;
    options.port = 0;
    options.usb.port = usbPort;
    options.usb.reconnectInterval = std::chrono::milliseconds(50);
    options.usb.tunnelInterval = std::chrono::milliseconds(50);
    options.settingsFile = QDir(folder).filePath(QStringLiteral("settings.ini"));
    options.tokenFolder = folder;
    options.cameraLibrary = TESTCAM_NAME;
    return options;
}

} // namespace pevrix
