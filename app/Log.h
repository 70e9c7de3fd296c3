#pragma once

#include <QLoggingCategory>

namespace pevrix {

// Of the shell: the window's file, the capture mode.
Q_DECLARE_LOGGING_CATEGORY(appLog)

} // namespace pevrix
