#include "system/Pace.h"

#include <thread>

namespace pevrix {

void sleepUntil(std::chrono::steady_clock::time_point time)
{
    std::this_thread::sleep_until(time);
}

void keepPaceWhileHidden() {}

StayAwake::StayAwake() = default;
StayAwake::~StayAwake() = default;

} // namespace pevrix
