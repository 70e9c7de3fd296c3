// How the pin comes to a peer, and leaves it.
#include "softcam/CameraFilter_win.h"
#include "softcam/CameraPin_win.h"

#include <algorithm>
#include <mutex>
#include <utility>
// After windows.h, whose types they use.
#include <uuids.h>
#include <vfwmsgs.h>

namespace pevrix {

using Microsoft::WRL::ComPtr;

namespace {

constexpr long kBuffers = 3; // one is filled while another is shown and a third waits
constexpr long kMaxBuffers = 32;

// Whether the allocator makes buffers for these pictures and the input takes them from it.
bool takes(IMemInputPin& input, IMemAllocator* allocator, ALLOCATOR_PROPERTIES wanted)
{
    ALLOCATOR_PROPERTIES actual{};
    return allocator != nullptr && SUCCEEDED(allocator->SetProperties(&wanted, &actual)) &&
           actual.cbBuffer >= wanted.cbBuffer && actual.cBuffers > 0 &&
           SUCCEEDED(input.NotifyAllocator(allocator, FALSE));
}

// The input's own allocator, else the system's; null when neither is taken.
ComPtr<IMemAllocator> agreedAllocator(IMemInputPin& input, const StreamFormat& format)
{
    ALLOCATOR_PROPERTIES wanted{};
    input.GetAllocatorRequirements(&wanted); // which is not implemented by most
    wanted.cBuffers = std::clamp(wanted.cBuffers, kBuffers, kMaxBuffers);
    wanted.cbBuffer = static_cast<long>(pictureSize(format.layout, format.picture));
    wanted.cbAlign = std::max(wanted.cbAlign, 1L);
    wanted.cbPrefix = std::max(wanted.cbPrefix, 0L);
    ComPtr<IMemAllocator> allocator;
    if (SUCCEEDED(input.GetAllocator(&allocator)) && takes(input, allocator.Get(), wanted)) {
        return allocator;
    }
    allocator.Reset();
    CoCreateInstance(CLSID_MemoryAllocator, nullptr, CLSCTX_INPROC_SERVER,
                     IID_PPV_ARGS(&allocator));
    return takes(input, allocator.Get(), wanted) ? allocator : nullptr;
}

bool leavesOpen(const AM_MEDIA_TYPE& type)
{
    return type.majortype == GUID_NULL || type.subtype == GUID_NULL || type.formattype == GUID_NULL;
}

} // namespace

STDMETHODIMP CameraPin::Connect(IPin* peer, const AM_MEDIA_TYPE* type)
{
    if (peer == nullptr) {
        return E_POINTER;
    }
    const std::lock_guard lock(m_filter.stateLock());
    PIN_DIRECTION direction = PINDIR_OUTPUT;
    if (connection()) {
        return VFW_E_ALREADY_CONNECTED;
    }
    if (!m_filter.isStopped()) {
        return VFW_E_NOT_STOPPED;
    }
    if (FAILED(peer->QueryDirection(&direction)) || direction != PINDIR_INPUT) {
        return VFW_E_INVALID_DIRECTION;
    }
    return withoutThrowing([&]() -> HRESULT {
        if (type == nullptr || leavesOpen(*type)) {
            return connectWithAny(*peer, type);
        }
        const auto format = streamFormatOf(*type);
        return format ? connectWith(*peer, *format) : VFW_E_TYPE_NOT_ACCEPTED;
    });
}

HRESULT CameraPin::connectWithAny(IPin& peer, const AM_MEDIA_TYPE* partial)
{
    HRESULT result = VFW_E_NO_ACCEPTABLE_TYPES;
    const auto choice = chosen();
    for (const StreamFormat& format :
         choice ? std::vector<StreamFormat>{*choice} : lookUpFormats()) {
        if (partial != nullptr && !matches(*partial, format)) {
            continue;
        }
        result = connectWith(peer, format);
        if (SUCCEEDED(result) || result == VFW_E_NO_TRANSPORT) {
            return result;
        }
    }
    return choice ? result : connectWithTypesOf(peer, partial);
}

HRESULT CameraPin::connectWithTypesOf(IPin& peer, const AM_MEDIA_TYPE* partial)
{
    ComPtr<IEnumMediaTypes> types;
    AM_MEDIA_TYPE* type = nullptr;
    if (FAILED(peer.EnumMediaTypes(&types)) || !types) {
        return VFW_E_NO_ACCEPTABLE_TYPES;
    }
    while (types->Next(1, &type, nullptr) == S_OK) {
        const auto format = streamFormatOf(*type);
        MediaType::free(type);
        if (format && (partial == nullptr || matches(*partial, *format)) &&
            SUCCEEDED(connectWith(peer, *format))) {
            return S_OK;
        }
    }
    return VFW_E_NO_ACCEPTABLE_TYPES;
}

HRESULT CameraPin::connectWith(IPin& peer, const StreamFormat& format)
{
    const MediaType type = MediaType::of(format);
    if (!type) {
        return E_OUTOFMEMORY;
    }
    Connection made{&peer, nullptr, nullptr, format};
    if (FAILED(peer.QueryInterface(IID_PPV_ARGS(&made.input)))) {
        return VFW_E_NO_TRANSPORT;
    }
    const HRESULT result = peer.ReceiveConnection(this, type.get());
    if (FAILED(result)) {
        return result;
    }
    made.allocator = agreedAllocator(*made.input.Get(), format);
    if (!made.allocator) {
        peer.Disconnect();
        return VFW_E_NO_ALLOCATOR;
    }
    setConnection(std::move(made));
    return S_OK;
}

STDMETHODIMP CameraPin::Disconnect()
{
    const std::lock_guard lock(m_filter.stateLock());
    if (!m_filter.isStopped()) {
        return VFW_E_NOT_STOPPED;
    }
    if (!connection()) {
        return S_FALSE;
    }
    setConnection(std::nullopt);
    return S_OK;
}

std::optional<CameraPin::Connection> CameraPin::connection()
{
    const std::lock_guard lock(m_lock);
    return m_connection;
}

void CameraPin::setConnection(std::optional<Connection> connection)
{
    // What it was is released after the lock.
    const std::lock_guard lock(m_lock);
    m_connection.swap(connection);
}

} // namespace pevrix
