#pragma once

// The only place that includes Media Foundation's headers, with its functions and owners for its
// two pairs of calls that are not COM references.

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

// Media Foundation's functions, which answer E_NOTIMPL where it is missing. Some editions of
// Windows (those named N, servers) have it only as a feature to be added, and a program that is
// linked with its libraries does not even start there: they are loaded with the first call.
struct MediaFunctions
{
    decltype(&MFStartup) startup = nullptr;
    decltype(&MFShutdown) shutdown = nullptr;
    decltype(&MFCreateAttributes) createAttributes = nullptr;
    decltype(&MFCreateMediaType) createMediaType = nullptr;
    decltype(&MFCreateMemoryBuffer) createMemoryBuffer = nullptr;
    decltype(&MFCreateSample) createSample = nullptr;
    decltype(&MFCreateSinkWriterFromURL) createSinkWriter = nullptr;
    bool complete = true; // none is missing
};

// Any thread.
[[nodiscard]] const MediaFunctions& mediaFunctions();

// One start of Media Foundation, ended with the object. What belongs to the platform (transforms,
// samples) must be gone by then.
class MediaPlatform
{
public:
    MediaPlatform() = default;
    ~MediaPlatform()
    {
        if (m_started) {
            mediaFunctions().shutdown();
        }
    }
    MediaPlatform(const MediaPlatform&) = delete;
    MediaPlatform& operator=(const MediaPlatform&) = delete;

    // True at once when it is started already. `flags`: MFSTARTUP_LITE or MFSTARTUP_FULL.
    [[nodiscard]] bool start(DWORD flags)
    {
        m_started = m_started || SUCCEEDED(mediaFunctions().startup(MF_VERSION, flags));
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
