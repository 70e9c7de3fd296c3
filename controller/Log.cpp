#include "controller/Log.h"

namespace pevrix {

Q_LOGGING_CATEGORY(controllerLog, "pevrix.controller")
Q_LOGGING_CATEGORY(cameraLog, "pevrix.camera")
Q_LOGGING_CATEGORY(systemLog, "pevrix.system")
Q_LOGGING_CATEGORY(usbLog, "pevrix.usb")
Q_LOGGING_CATEGORY(videoLog, "pevrix.video")

} // namespace pevrix
