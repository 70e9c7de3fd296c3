#pragma once

namespace pevrix {

// From now on a block of a picture's size goes back to the system at once when it is freed. To be
// called once, before the first such block.
void returnLargeBlocksAtOnce();

// Gives the system back what was freed, after work that took much memory. May take some
// milliseconds.
void returnFreeMemory();

} // namespace pevrix
