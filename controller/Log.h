#pragma once

#include <QLoggingCategory>

namespace pevrix {

Q_DECLARE_LOGGING_CATEGORY(controllerLog)

// Of rooms that log nothing themselves: the controller says what it learns from them.
Q_DECLARE_LOGGING_CATEGORY(cameraLog)
Q_DECLARE_LOGGING_CATEGORY(systemLog)
Q_DECLARE_LOGGING_CATEGORY(usbLog)
Q_DECLARE_LOGGING_CATEGORY(videoLog)

} // namespace pevrix
