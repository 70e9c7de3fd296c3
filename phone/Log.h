#pragma once

#include <QLoggingCategory>

namespace pevrix {

// Of the phone link: listening, connections.
Q_DECLARE_LOGGING_CATEGORY(phoneLog)

} // namespace pevrix
