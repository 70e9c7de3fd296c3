#include "system/Pace.h"
#include "system/WaitableTimer_win.h"

#include <thread>

namespace pevrix {
namespace {

// Takes this one thing back into the program's own hands: not throttled, whatever is seen of it.
// Versions of Windows that do not know it refuse it, so that each is asked for in a call of its
// own.
void neverThrottle(ULONG what)
{
    PROCESS_POWER_THROTTLING_STATE state{};
    state.Version = PROCESS_POWER_THROTTLING_CURRENT_VERSION;
    state.ControlMask = what;
    SetProcessInformation(GetCurrentProcess(), ProcessPowerThrottling, &state, sizeof(state));
}

} // namespace

void sleepUntil(std::chrono::steady_clock::time_point time)
{
    thread_local WaitableTimer timer;
    if (!timer.set(time) || WaitForSingleObject(timer.handle(), INFINITE) != WAIT_OBJECT_0) {
        std::this_thread::sleep_until(time);
    }
}

// The second is what keeps the fine clock of Qt's timers (Windows 11).
void keepPaceWhileHidden()
{
    neverThrottle(PROCESS_POWER_THROTTLING_EXECUTION_SPEED);
    neverThrottle(PROCESS_POWER_THROTTLING_IGNORE_TIMER_RESOLUTION);
}

StayAwake::StayAwake()
{
    SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
}

StayAwake::~StayAwake()
{
    SetThreadExecutionState(ES_CONTINUOUS);
}

} // namespace pevrix
