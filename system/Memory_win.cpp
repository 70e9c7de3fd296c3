#include "system/Memory.h"

namespace pevrix {

// The heap does so anyway.
void returnLargeBlocksAtOnce() {}

void returnFreeMemory() {}

} // namespace pevrix
