#include "tools/camreader/SinkFilter_win.h"

#include <wchar.h>

namespace pevrix {

namespace {

constexpr const wchar_t* kPinId = L"In";
constexpr GUID kFilterId = {
    0x5d0f2c1a, 0x6a43, 0x4b0e, {0x9d, 0x52, 0x0b, 0x7e, 0x44, 0x1f, 0x3a, 0x90}};

template <typename T>
HRESULT handOut(T* object, T** to)
{
    if (!to) {
        return E_POINTER;
    }
    object->AddRef();
    *to = object;
    return S_OK;
}

// The filter's one pin.
class OnePin final : public CountedObject<IEnumPins>
{
public:
    OnePin(Microsoft::WRL::ComPtr<IPin> pin, bool passed)
        : m_pin(std::move(pin))
        , m_passed(passed)
    {}

    STDMETHODIMP Next(ULONG count, IPin** pins, ULONG* fetched) override
    {
        const ULONG given = count > 0 && !m_passed ? 1 : 0;
        if (given != 0) {
            m_pin.CopyTo(pins);
            m_passed = true;
        }
        if (fetched) {
            *fetched = given;
        }
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override
    {
        const bool enough = count == 0 || (count == 1 && !m_passed);
        m_passed = m_passed || count > 0;
        return enough ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override
    {
        m_passed = false;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumPins** copy) override
    {
        *copy = new OnePin(m_pin, m_passed);
        return S_OK;
    }

private:
    const Microsoft::WRL::ComPtr<IPin> m_pin;
    bool m_passed;
};

} // namespace

STDMETHODIMP SinkFilter::GetClassID(CLSID* id)
{
    *id = kFilterId;
    return S_OK;
}

HRESULT SinkFilter::enter(FILTER_STATE state)
{
    m_state = state;
    return S_OK;
}

STDMETHODIMP SinkFilter::GetState(DWORD, FILTER_STATE* state)
{
    *state = m_state;
    return S_OK;
}

STDMETHODIMP SinkFilter::SetSyncSource(IReferenceClock* clock)
{
    m_clock = clock;
    return S_OK;
}

STDMETHODIMP SinkFilter::GetSyncSource(IReferenceClock** clock)
{
    return m_clock.CopyTo(clock);
}

STDMETHODIMP SinkFilter::EnumPins(IEnumPins** pins)
{
    *pins = new OnePin(static_cast<IPin*>(&m_pin), false);
    return S_OK;
}

STDMETHODIMP SinkFilter::FindPin(LPCWSTR id, IPin** pin)
{
    return wcscmp(id, kPinId) == 0 ? handOut<IPin>(&m_pin, pin) : VFW_E_NOT_FOUND;
}

STDMETHODIMP SinkFilter::QueryFilterInfo(FILTER_INFO* info)
{
    wcscpy(info->achName, L"camreader");
    info->pGraph = m_graph;
    if (m_graph) {
        m_graph->AddRef();
    }
    return S_OK;
}

STDMETHODIMP SinkFilter::JoinFilterGraph(IFilterGraph* graph, LPCWSTR)
{
    m_graph = graph;
    return S_OK;
}

} // namespace pevrix
