#pragma once

#include <chrono>

namespace pevrix {

// Sleeps until then, as precisely as the system can: pictures are 33 ms apart.
void sleepUntil(std::chrono::steady_clock::time_point time);

// Asks the system to serve this program no slower while its window is hidden or covered, as it is
// during most calls. Once, at start.
void keepPaceWhileHidden();

// While one lives, the PC does not fall asleep for want of keys and mouse; its screen may. Belongs
// to one thread. Does nothing on Linux, where each desktop has a D-Bus service of its own for it.
class StayAwake
{
public:
    StayAwake();
    ~StayAwake(); // NOLINT(performance-trivially-destructible): on Windows it has something to do
    StayAwake(const StayAwake&) = delete;
    StayAwake& operator=(const StayAwake&) = delete;
};

} // namespace pevrix
