#pragma once

#include "tools/camreader/MediaType_win.h"
#include "tools/camreader/Watcher.h"
#include "tools/doubles/ComObject_win.h"

#include <atomic>
#include <mutex>
#include <wrl/client.h>

namespace pevrix {

class SinkFilter;

// The only pin of a SinkFilter, and a part of it: both have one reference count.
class SinkPin final : public IPin, public IMemInputPin
{
public:
    SinkPin(SinkFilter& filter, Watcher& watcher)
        : m_filter(filter)
        , m_watcher(watcher)
    {}
    ~SinkPin() { clearMediaType(m_type); }
    SinkPin(const SinkPin&) = delete;
    SinkPin& operator=(const SinkPin&) = delete;

    // Samples that were too short for their format.
    [[nodiscard]] int shortSamples() const { return m_shortSamples; }

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP Connect(IPin*, const AM_MEDIA_TYPE*) override { return E_UNEXPECTED; }
    STDMETHODIMP ReceiveConnection(IPin* from, const AM_MEDIA_TYPE* type) override;
    STDMETHODIMP Disconnect() override;
    STDMETHODIMP ConnectedTo(IPin** pin) override;
    STDMETHODIMP ConnectionMediaType(AM_MEDIA_TYPE* type) override;
    STDMETHODIMP QueryPinInfo(PIN_INFO* info) override;
    STDMETHODIMP QueryDirection(PIN_DIRECTION* direction) override;
    STDMETHODIMP QueryId(LPWSTR* id) override;
    STDMETHODIMP QueryAccept(const AM_MEDIA_TYPE* type) override;
    STDMETHODIMP EnumMediaTypes(IEnumMediaTypes**) override { return E_NOTIMPL; }
    STDMETHODIMP QueryInternalConnections(IPin**, ULONG*) override { return E_NOTIMPL; }
    STDMETHODIMP EndOfStream() override { return S_OK; }
    STDMETHODIMP BeginFlush() override { return S_OK; }
    STDMETHODIMP EndFlush() override { return S_OK; }
    STDMETHODIMP NewSegment(REFERENCE_TIME, REFERENCE_TIME, double) override { return S_OK; }

    STDMETHODIMP GetAllocator(IMemAllocator** allocator) override;
    STDMETHODIMP NotifyAllocator(IMemAllocator* allocator, BOOL readOnly) override;
    STDMETHODIMP GetAllocatorRequirements(ALLOCATOR_PROPERTIES*) override { return E_NOTIMPL; }
    STDMETHODIMP Receive(IMediaSample* sample) override;
    STDMETHODIMP ReceiveMultiple(IMediaSample** samples, long count, long* done) override;
    STDMETHODIMP ReceiveCanBlock() override { return S_FALSE; }

private:
    SinkFilter& m_filter;
    Watcher& m_watcher;
    std::mutex m_mutex; // of what follows, but for the counter
    Microsoft::WRL::ComPtr<IPin> m_from;
    Microsoft::WRL::ComPtr<IMemAllocator> m_allocator;
    AM_MEDIA_TYPE m_type{};
    std::atomic<int> m_shortSamples = 0;
};

// Where a graph's pictures end: the watcher looks at each. Takes the formats that videoFormat()
// knows.
class SinkFilter final : public CountedObject<IBaseFilter>
{
public:
    // The watcher must outlive the filter. The new filter has one reference, the caller's.
    explicit SinkFilter(Watcher& watcher)
        : m_pin(*this, watcher)
    {}

    [[nodiscard]] SinkPin& pin() { return m_pin; }
    [[nodiscard]] FILTER_STATE state() const { return m_state; }

    STDMETHODIMP GetClassID(CLSID* id) override;
    STDMETHODIMP Stop() override { return enter(State_Stopped); }
    STDMETHODIMP Pause() override { return enter(State_Paused); }
    STDMETHODIMP Run(REFERENCE_TIME) override { return enter(State_Running); }
    STDMETHODIMP GetState(DWORD milliseconds, FILTER_STATE* state) override;
    STDMETHODIMP SetSyncSource(IReferenceClock* clock) override;
    STDMETHODIMP GetSyncSource(IReferenceClock** clock) override;
    STDMETHODIMP EnumPins(IEnumPins** pins) override;
    STDMETHODIMP FindPin(LPCWSTR id, IPin** pin) override;
    STDMETHODIMP QueryFilterInfo(FILTER_INFO* info) override;
    STDMETHODIMP JoinFilterGraph(IFilterGraph* graph, LPCWSTR name) override;
    STDMETHODIMP QueryVendorInfo(LPWSTR*) override { return E_NOTIMPL; }

private:
    [[nodiscard]] bool implements(REFIID id) const override
    {
        return id == IID_IPersist || id == IID_IMediaFilter || id == IID_IBaseFilter;
    }
    HRESULT enter(FILTER_STATE state);

    std::atomic<FILTER_STATE> m_state = State_Stopped;
    SinkPin m_pin;
    Microsoft::WRL::ComPtr<IReferenceClock> m_clock;
    IFilterGraph* m_graph = nullptr; // which holds us
};

} // namespace pevrix
