#include "app/Log.h"

namespace pevrix {

Q_LOGGING_CATEGORY(appLog, "pevrix.app")

} // namespace pevrix
