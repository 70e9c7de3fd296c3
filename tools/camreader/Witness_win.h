#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>
#include <windows.h>

namespace pevrix {

struct CloseHandleOf
{
    void operator()(void* handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, CloseHandleOf>;

// What one process takes to wake another one on this machine and that one to copy a picture,
// whatever the camera does: the sender signals beside each picture, the reader notes when it is
// done.
class WitnessSender
{
public:
    WitnessSender();
    ~WitnessSender();
    WitnessSender(const WitnessSender&) = delete;
    WitnessSender& operator=(const WitnessSender&) = delete;

    void signal();

private:
    UniqueHandle m_event;
    UniqueHandle m_section;
    volatile std::int64_t* m_time = nullptr;
};

class WitnessReader
{
public:
    WitnessReader();
    ~WitnessReader();
    WitnessReader(const WitnessReader&) = delete;
    WitnessReader& operator=(const WitnessReader&) = delete;

    // Microseconds from each signal since the last call until this process had copied a picture.
    [[nodiscard]] std::vector<std::int64_t> takeDelays();

private:
    void run();

    UniqueHandle m_stop;
    std::mutex m_mutex;
    std::vector<std::int64_t> m_delays;
    std::thread m_thread;
};

} // namespace pevrix
