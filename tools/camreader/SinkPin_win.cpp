#include "tools/camreader/SinkFilter_win.h"
#include "tools/camreader/ThisProcess_win.h"

#include <wchar.h>

namespace pevrix {

STDMETHODIMP SinkPin::QueryInterface(REFIID id, void** object)
{
    if (id == IID_IUnknown || id == IID_IPin) {
        *object = static_cast<IPin*>(this);
    } else if (id == IID_IMemInputPin) {
        *object = static_cast<IMemInputPin*>(this);
    } else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) SinkPin::AddRef()
{
    return m_filter.AddRef();
}

STDMETHODIMP_(ULONG) SinkPin::Release()
{
    return m_filter.Release();
}

STDMETHODIMP SinkPin::ReceiveConnection(IPin* from, const AM_MEDIA_TYPE* type)
{
    const std::lock_guard lock(m_mutex);
    if (m_from) {
        return VFW_E_ALREADY_CONNECTED;
    }
    if (QueryAccept(type) != S_OK) {
        return VFW_E_TYPE_NOT_ACCEPTED;
    }
    if (!copyMediaType(m_type, *type)) {
        return E_OUTOFMEMORY;
    }
    m_from = from;
    return S_OK;
}

STDMETHODIMP SinkPin::Disconnect()
{
    const std::lock_guard lock(m_mutex);
    if (!m_from) {
        return S_FALSE;
    }
    m_from.Reset();
    m_allocator.Reset();
    clearMediaType(m_type);
    return S_OK;
}

STDMETHODIMP SinkPin::ConnectedTo(IPin** pin)
{
    const std::lock_guard lock(m_mutex);
    *pin = nullptr;
    return m_from ? m_from.CopyTo(pin) : VFW_E_NOT_CONNECTED;
}

STDMETHODIMP SinkPin::ConnectionMediaType(AM_MEDIA_TYPE* type)
{
    const std::lock_guard lock(m_mutex);
    *type = {};
    if (!m_from) {
        return VFW_E_NOT_CONNECTED;
    }
    return copyMediaType(*type, m_type) ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP SinkPin::QueryPinInfo(PIN_INFO* info)
{
    info->pFilter = &m_filter;
    m_filter.AddRef();
    info->dir = PINDIR_INPUT;
    wcscpy(info->achName, L"In");
    return S_OK;
}

STDMETHODIMP SinkPin::QueryDirection(PIN_DIRECTION* direction)
{
    *direction = PINDIR_INPUT;
    return S_OK;
}

STDMETHODIMP SinkPin::QueryId(LPWSTR* id)
{
    constexpr wchar_t kId[] = L"In";
    *id = static_cast<LPWSTR>(CoTaskMemAlloc(sizeof kId));
    if (!*id) {
        return E_OUTOFMEMORY;
    }
    wcscpy(*id, kId);
    return S_OK;
}

STDMETHODIMP SinkPin::QueryAccept(const AM_MEDIA_TYPE* type)
{
    return videoFormat(*type).layout != RawLayout::None ? S_OK : S_FALSE;
}

STDMETHODIMP SinkPin::GetAllocator(IMemAllocator** allocator)
{
    const std::lock_guard lock(m_mutex);
    if (!m_allocator) {
        const HRESULT result = CoCreateInstance(CLSID_MemoryAllocator, nullptr,
                                                CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&m_allocator));
        if (FAILED(result)) {
            return result;
        }
    }
    return m_allocator.CopyTo(allocator);
}

STDMETHODIMP SinkPin::NotifyAllocator(IMemAllocator* allocator, BOOL)
{
    const std::lock_guard lock(m_mutex);
    m_allocator = allocator;
    return S_OK;
}

STDMETHODIMP SinkPin::Receive(IMediaSample* sample)
{
    const std::int64_t arrival = sharedMicroseconds();
    if (m_filter.state() == State_Stopped) {
        return VFW_E_WRONG_STATE;
    }
    const std::lock_guard lock(m_mutex);
    AM_MEDIA_TYPE* changed = nullptr;
    if (sample->GetMediaType(&changed) == S_OK && changed) {
        const UniqueMediaType type(changed);
        if (!copyMediaType(m_type, *type)) {
            return E_OUTOFMEMORY;
        }
    }
    const VideoFormat format = videoFormat(m_type);
    const long length = sample->GetActualDataLength();
    BYTE* bytes = nullptr;
    if (format.layout == RawLayout::None || FAILED(sample->GetPointer(&bytes)) || length < 0 ||
        static_cast<std::size_t>(length) < layoutSize(format.layout, format.width, format.height)) {
        ++m_shortSamples;
        return S_OK;
    }
    REFERENCE_TIME start = 0;
    REFERENCE_TIME end = 0;
    const bool timed = SUCCEEDED(sample->GetTime(&start, &end));
    m_watcher.take(RawPicture(format.layout, format.width, format.height,
                              {bytes, static_cast<std::size_t>(length)}),
                   arrival, timed ? std::optional<std::int64_t>(start) : std::nullopt);
    return S_OK;
}

STDMETHODIMP SinkPin::ReceiveMultiple(IMediaSample** samples, long count, long* done)
{
    *done = 0;
    while (*done < count) {
        const HRESULT result = Receive(samples[*done]);
        if (result != S_OK) {
            return result;
        }
        ++*done;
    }
    return S_OK;
}

} // namespace pevrix
