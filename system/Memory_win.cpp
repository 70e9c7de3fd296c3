#include "system/Memory.h"

namespace pevrix {

// The heap returns blocks of a picture's size at once when they are freed.
void returnFreeMemory() {}

} // namespace pevrix
