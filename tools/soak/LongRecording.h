#pragma once

#include "tools/soak/Verdicts.h"

#include <QString>

namespace pevrix {

// Records `minutes` of pictures whose clock runs as fast as they are encoded: at 29.7 and 30.3 a
// second by turns, with pauses. Takes about four minutes for two hours; for a thread of its own.
void recordForLong(const QString& file, int minutes, Verdicts& verdicts);

} // namespace pevrix
