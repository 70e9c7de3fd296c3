#pragma once

#include "softcam/KernelObjects_win.h"
#include "softcam/Lock_win.h"
#include "softcam/MediaType_win.h"
#include "system/WaitableTimer_win.h"

#include <chrono>
#include <memory>
#include <span>
#include <wrl/client.h>

namespace pevrix {

class CameraReader;

// The thread that hands pictures to one connected pin while the filter is not stopped. A sender
// knows of the reader all that time, but new ones are looked for, and pictures handed on, only
// while it runs. It ends silently when the other side refuses a picture.
class PictureStream
{
public:
    struct Target
    {
        Microsoft::WRL::ComPtr<IMemAllocator> allocator; // committed
        Microsoft::WRL::ComPtr<IMemInputPin> input;
        StreamFormat format;
    };

    // Null when the system has no thread or no memory left.
    [[nodiscard]] static std::unique_ptr<PictureStream> start(Target target);

    // Waits for the thread. The allocator must be decommitted by then, so that it gets no buffer.
    ~PictureStream();
    PictureStream(const PictureStream&) = delete;
    PictureStream& operator=(const PictureStream&) = delete;

    // Time stamps count from `start` of the clock; without a clock, from the first call.
    void run(Microsoft::WRL::ComPtr<IReferenceClock> clock, REFERENCE_TIME start);
    void pause();

    // Whether the other side has refused a picture: no more will come.
    [[nodiscard]] bool hasEnded() const
    {
        return WaitForSingleObject(m_thread.get(), 0) == WAIT_OBJECT_0;
    }

private:
    using Clock = std::chrono::steady_clock;

    explicit PictureStream(Target target);

    static unsigned __stdcall threadMain(void* self);
    void work();
    void serveReader();
    [[nodiscard]] bool isRunning();
    // False when it shall end.
    [[nodiscard]] bool waitUntil(Clock::time_point time, const CameraReader& reader);
    [[nodiscard]] bool waitForRun();
    [[nodiscard]] bool handOn(std::span<const std::uint8_t> picture);
    [[nodiscard]] bool fill(IMediaSample& sample, std::span<const std::uint8_t> picture);
    [[nodiscard]] bool takeType(IMediaSample& sample);
    [[nodiscard]] bool copy(IMediaSample& sample, std::span<const std::uint8_t> picture) const;
    [[nodiscard]] REFERENCE_TIME streamTime();

    const Target m_target;
    UniqueHandle m_stop;    // manual reset
    UniqueHandle m_changed; // auto-reset: runs or pauses
    WaitableTimer m_timer;
    UniqueHandle m_thread;

    Lock m_lock; // guards the next four
    bool m_running = false;
    bool m_ranBefore = false;
    Microsoft::WRL::ComPtr<IReferenceClock> m_clock;
    REFERENCE_TIME m_start = 0;
    Clock::time_point m_firstRun;

    // The thread's own.
    StreamFormat m_format;
    std::uint32_t m_rowWidth; // of the other side's memory, in pixels
    REFERENCE_TIME m_lastStamp = -1;
    bool m_discontinuity = true;
};

} // namespace pevrix
