#pragma once

#include "softcam/CameraPin_win.h"
#include "softcam/ComServer_win.h"
#include "softcam/Lock_win.h"

#include <atomic>
#include <string>
#include <wrl/client.h>

namespace pevrix {

// The camera as DirectShow's programs open it: a live source with one output pin. It sends only
// while it runs. Any thread may call.
class CameraFilter final : public ComObject<IBaseFilter, IAMFilterMiscFlags>
{
public:
    CameraFilter();

    // For the pin. The lock is held while the filter's state, the connection or the format changes,
    // foreign code included; whoever only asks does not take it, so that the stream's thread may be
    // waited for with it.
    [[nodiscard]] RecursiveLock& stateLock() { return m_stateLock; }
    [[nodiscard]] bool isStopped() const { return m_state == State_Stopped; }
    [[nodiscard]] Microsoft::WRL::ComPtr<IFilterGraph> graph();

    // IPersist
    STDMETHODIMP GetClassID(CLSID* classId) override;

    // IMediaFilter
    STDMETHODIMP Stop() override;
    STDMETHODIMP Pause() override;
    STDMETHODIMP Run(REFERENCE_TIME start) override;
    STDMETHODIMP GetState(DWORD milliseconds, FILTER_STATE* state) override;
    STDMETHODIMP SetSyncSource(IReferenceClock* clock) override;
    STDMETHODIMP GetSyncSource(IReferenceClock** clock) override;

    // IBaseFilter
    STDMETHODIMP EnumPins(IEnumPins** pins) override;
    STDMETHODIMP FindPin(LPCWSTR id, IPin** pin) override;
    STDMETHODIMP QueryFilterInfo(FILTER_INFO* info) override;
    STDMETHODIMP JoinFilterGraph(IFilterGraph* graph, LPCWSTR name) override;
    STDMETHODIMP QueryVendorInfo(LPWSTR* info) override;

    // IAMFilterMiscFlags
    STDMETHODIMP_(ULONG) GetMiscFlags() override { return AM_FILTER_MISC_FLAGS_IS_SOURCE; }

private:
    ~CameraFilter() override;

    RecursiveLock m_stateLock;
    std::atomic<FILTER_STATE> m_state = State_Stopped;
    CameraPin m_pin;

    Lock m_lock;                     // guards the rest
    IFilterGraph* m_graph = nullptr; // which owns this filter, so that it is no reference
    WCHAR m_name[MAX_FILTER_NAME]{};
    Microsoft::WRL::ComPtr<IReferenceClock> m_clock;
};

} // namespace pevrix
