#pragma once

namespace pevrix {

// Gives the system back what was freed, after work that took much memory. May take some
// milliseconds.
void returnFreeMemory();

} // namespace pevrix
