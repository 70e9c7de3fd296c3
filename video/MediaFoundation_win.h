#pragma once

// The only place that includes Media Foundation's headers, with owners for its two pairs of calls
// that are not COM references.

#include <windows.h>
// After windows.h, whose types they use.
#include <codecapi.h>
#include <cstddef>
#include <cstdint>
#include <mfapi.h>
#include <mferror.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <mftransform.h>
#include <span>
#include <wmcodecdsp.h>
#include <wrl/client.h>

namespace pevrix {

// One start of Media Foundation, ended with the object. What belongs to the platform (transforms,
// samples) must be gone by then.
class MediaPlatform
{
public:
    MediaPlatform() = default;
    ~MediaPlatform()
    {
        if (m_started) {
            MFShutdown();
        }
    }
    MediaPlatform(const MediaPlatform&) = delete;
    MediaPlatform& operator=(const MediaPlatform&) = delete;

    // True at once when it is started already. `flags`: MFSTARTUP_LITE or MFSTARTUP_FULL.
    [[nodiscard]] bool start(DWORD flags)
    {
        m_started = m_started || SUCCEEDED(MFStartup(MF_VERSION, flags));
        return m_started;
    }

private:
    bool m_started = false;
};

// The bytes of a buffer while they stay at their address. All that the buffer can hold, not only
// what is marked as used; empty when it cannot be locked.
class LockedBuffer
{
public:
    explicit LockedBuffer(IMFMediaBuffer* buffer)
    {
        BYTE* data = nullptr;
        DWORD capacity = 0;
        if (buffer != nullptr && SUCCEEDED(buffer->Lock(&data, &capacity, nullptr))) {
            m_buffer = buffer;
            m_bytes = {data, data == nullptr ? 0 : capacity};
        }
    }
    ~LockedBuffer()
    {
        if (m_buffer != nullptr) {
            m_buffer->Unlock();
        }
    }
    LockedBuffer(const LockedBuffer&) = delete;
    LockedBuffer& operator=(const LockedBuffer&) = delete;

    [[nodiscard]] std::span<std::uint8_t> bytes() const { return m_bytes; }

private:
    Microsoft::WRL::ComPtr<IMFMediaBuffer> m_buffer;
    std::span<std::uint8_t> m_bytes;
};

} // namespace pevrix
