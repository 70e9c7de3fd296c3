#include "softcam/CameraFilter_win.h"

#include "softcam/ListEnumerator_win.h"

#include <algorithm>
#include <cwchar>
#include <mutex>
#include <new>
// After windows.h, whose types it uses.
#include <vfwmsgs.h>

namespace pevrix {

using Microsoft::WRL::ComPtr;

CameraFilter::CameraFilter()
    : m_pin(*this)
{}

CameraFilter::~CameraFilter()
{
    m_pin.stopStream(); // of a program that lets go of a running filter
}

ComPtr<IFilterGraph> CameraFilter::graph()
{
    const std::lock_guard lock(m_lock);
    return m_graph;
}

STDMETHODIMP CameraFilter::GetClassID(CLSID* classId)
{
    if (classId == nullptr) {
        return E_POINTER;
    }
    *classId = kCameraClass;
    return S_OK;
}

STDMETHODIMP CameraFilter::Stop()
{
    const std::lock_guard lock(m_stateLock);
    m_pin.stopStream();
    m_state = State_Stopped;
    return S_OK;
}

STDMETHODIMP CameraFilter::Pause()
{
    const std::lock_guard lock(m_stateLock);
    const HRESULT result = m_pin.startStream();
    if (FAILED(result)) {
        return result;
    }
    m_pin.pauseStream();
    m_state = State_Paused;
    return S_OK;
}

STDMETHODIMP CameraFilter::Run(REFERENCE_TIME start)
{
    const std::lock_guard lock(m_stateLock);
    const HRESULT result = m_pin.startStream();
    if (FAILED(result)) {
        return result;
    }
    ComPtr<IReferenceClock> clock;
    GetSyncSource(&clock);
    m_pin.runStream(clock, start);
    m_state = State_Running;
    return S_OK;
}

STDMETHODIMP CameraFilter::GetState(DWORD /*milliseconds*/, FILTER_STATE* state)
{
    if (state == nullptr) {
        return E_POINTER;
    }
    *state = m_state;
    return *state == State_Paused ? VFW_S_CANT_CUE : S_OK; // a live source has nothing to show then
}

STDMETHODIMP CameraFilter::SetSyncSource(IReferenceClock* clock)
{
    ComPtr<IReferenceClock> before(clock); // released outside the lock
    const std::lock_guard lock(m_lock);
    m_clock.Swap(before);
    return S_OK;
}

STDMETHODIMP CameraFilter::GetSyncSource(IReferenceClock** clock)
{
    if (clock == nullptr) {
        return E_POINTER;
    }
    const std::lock_guard lock(m_lock);
    return m_clock.CopyTo(clock);
}

STDMETHODIMP CameraFilter::EnumPins(IEnumPins** pins)
{
    if (pins == nullptr) {
        return E_POINTER;
    }
    *pins = nullptr;
    return withoutThrowing([&] {
        *pins = new PinEnumerator({ComPtr<IPin>(&m_pin)});
        return S_OK;
    });
}

STDMETHODIMP CameraFilter::FindPin(LPCWSTR id, IPin** pin)
{
    if (pin == nullptr || id == nullptr) {
        return E_POINTER;
    }
    *pin = nullptr;
    if (std::wcscmp(id, kPinName) != 0) {
        return VFW_E_NOT_FOUND;
    }
    *pin = &m_pin;
    m_pin.AddRef();
    return S_OK;
}

STDMETHODIMP CameraFilter::QueryFilterInfo(FILTER_INFO* info)
{
    if (info == nullptr) {
        return E_POINTER;
    }
    const std::lock_guard lock(m_lock);
    std::copy(std::begin(m_name), std::end(m_name), info->achName);
    info->pGraph = m_graph;
    if (m_graph != nullptr) {
        m_graph->AddRef();
    }
    return S_OK;
}

STDMETHODIMP CameraFilter::JoinFilterGraph(IFilterGraph* graph, LPCWSTR name)
{
    const std::lock_guard lock(m_lock);
    m_graph = graph;
    std::fill(std::begin(m_name), std::end(m_name), L'\0');
    if (name != nullptr) {
        std::copy_n(name, std::min<std::size_t>(std::wcslen(name), MAX_FILTER_NAME - 1), m_name);
    }
    return S_OK;
}

STDMETHODIMP CameraFilter::QueryVendorInfo(LPWSTR* /*info*/)
{
    return E_NOTIMPL;
}

} // namespace pevrix
