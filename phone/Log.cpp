#include "phone/Log.h"

namespace pevrix {

Q_LOGGING_CATEGORY(phoneLog, "pevrix.phone")

} // namespace pevrix
