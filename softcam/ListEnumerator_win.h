#pragma once

#include "softcam/ComServer_win.h"
#include "softcam/MediaType_win.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>
#include <vector>
#include <wrl/client.h>

namespace pevrix {

// What a list's element becomes for a caller, who frees it; null when memory is short.
inline IPin* handOut(const Microsoft::WRL::ComPtr<IPin>& pin)
{
    pin->AddRef();
    return pin.Get();
}
inline AM_MEDIA_TYPE* handOut(const StreamFormat& format)
{
    return MediaType::allocate(format);
}

// IEnumPins or IEnumMediaTypes over a list of its own, which does not change when its maker does.
// Used by one thread at a time, as COM asks of its callers.
template <typename Interface, typename Element, typename Item>
class ListEnumerator final : public ComObject<Interface>
{
public:
    explicit ListEnumerator(std::vector<Element> elements)
        : m_elements(std::move(elements))
    {}

    STDMETHODIMP Next(ULONG count, Item** items, ULONG* fetched) override
    {
        if (items == nullptr || (fetched == nullptr && count != 1)) {
            return items == nullptr ? E_POINTER : E_INVALIDARG;
        }
        ULONG given = 0;
        while (given < count && m_next < m_elements.size()) {
            items[given] = handOut(m_elements[m_next]);
            if (items[given] == nullptr) {
                break;
            }
            ++m_next;
            ++given;
        }
        if (fetched != nullptr) {
            *fetched = given;
        }
        return given == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override
    {
        const std::size_t left = m_elements.size() - m_next;
        m_next += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override
    {
        m_next = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(Interface** clone) override
    {
        if (clone == nullptr) {
            return E_POINTER;
        }
        *clone = nullptr;
        return withoutThrowing([&] {
            auto* made = new ListEnumerator(m_elements);
            made->m_next = m_next;
            *clone = made;
            return S_OK;
        });
    }

private:
    const std::vector<Element> m_elements;
    std::size_t m_next = 0;
};

using PinEnumerator = ListEnumerator<IEnumPins, Microsoft::WRL::ComPtr<IPin>, IPin>;
using MediaTypeEnumerator = ListEnumerator<IEnumMediaTypes, StreamFormat, AM_MEDIA_TYPE>;

} // namespace pevrix
