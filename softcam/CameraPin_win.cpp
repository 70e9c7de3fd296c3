// What the pin says about itself, and its stream.
#include "softcam/CameraPin_win.h"

#include "softcam/CameraFilter_win.h"
#include "softcam/ListEnumerator_win.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <utility>
// After windows.h, whose types they use.
#include <uuids.h>
#include <vfwmsgs.h>

namespace pevrix {

using Microsoft::WRL::ComPtr;

CameraPin::CameraPin(CameraFilter& filter)
    : m_filter(filter)
{}

HRESULT CameraPin::startStream()
{
    const auto target = connection();
    if (m_stream && m_stream->hasEnded()) {
        stopStream(); // a new one has a new chance
    }
    if (m_stream || !target) {
        return S_OK;
    }
    const HRESULT result = target->allocator->Commit();
    if (FAILED(result)) {
        return result;
    }
    m_stream = PictureStream::start({target->allocator, target->input, target->format});
    if (!m_stream) {
        target->allocator->Decommit();
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

void CameraPin::runStream(ComPtr<IReferenceClock> clock, REFERENCE_TIME start)
{
    if (m_stream) {
        m_stream->run(std::move(clock), start);
    }
}

void CameraPin::pauseStream()
{
    if (m_stream) {
        m_stream->pause();
    }
}

void CameraPin::stopStream()
{
    if (m_stream) {
        connection()->allocator->Decommit(); // or the thread may wait for a buffer for ever
        m_stream.reset();
    }
}

STDMETHODIMP CameraPin::QueryInterface(REFIID iid, void** found)
{
    return queryInterface<IPin, IAMStreamConfig, IKsPropertySet, IQualityControl>(this, iid, found);
}

STDMETHODIMP_(ULONG) CameraPin::AddRef()
{
    return m_filter.AddRef();
}

STDMETHODIMP_(ULONG) CameraPin::Release()
{
    return m_filter.Release();
}

STDMETHODIMP CameraPin::ReceiveConnection(IPin* /*peer*/, const AM_MEDIA_TYPE* /*type*/)
{
    return E_UNEXPECTED;
}

STDMETHODIMP CameraPin::ConnectedTo(IPin** peer)
{
    if (peer == nullptr) {
        return E_POINTER;
    }
    const auto now = connection();
    *peer = nullptr;
    return now ? now->peer.CopyTo(peer) : VFW_E_NOT_CONNECTED;
}

STDMETHODIMP CameraPin::ConnectionMediaType(AM_MEDIA_TYPE* type)
{
    if (type == nullptr) {
        return E_POINTER;
    }
    const auto now = connection();
    *type = now ? MediaType::of(now->format).release() : AM_MEDIA_TYPE{};
    if (!now) {
        return VFW_E_NOT_CONNECTED;
    }
    return type->pbFormat != nullptr ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP CameraPin::QueryPinInfo(PIN_INFO* info)
{
    if (info == nullptr) {
        return E_POINTER;
    }
    *info = {};
    info->pFilter = &m_filter;
    info->pFilter->AddRef();
    info->dir = PINDIR_OUTPUT;
    std::copy(std::begin(kPinName), std::end(kPinName), info->achName);
    return S_OK;
}

STDMETHODIMP CameraPin::QueryDirection(PIN_DIRECTION* direction)
{
    if (direction == nullptr) {
        return E_POINTER;
    }
    *direction = PINDIR_OUTPUT;
    return S_OK;
}

STDMETHODIMP CameraPin::QueryId(LPWSTR* id)
{
    if (id == nullptr) {
        return E_POINTER;
    }
    *id = static_cast<LPWSTR>(CoTaskMemAlloc(sizeof(kPinName)));
    if (*id == nullptr) {
        return E_OUTOFMEMORY;
    }
    std::copy(std::begin(kPinName), std::end(kPinName), *id);
    return S_OK;
}

STDMETHODIMP CameraPin::QueryAccept(const AM_MEDIA_TYPE* type)
{
    if (type == nullptr) {
        return E_POINTER;
    }
    const auto format = streamFormatOf(*type);
    const auto now = connection();
    // The buffers of a connection are as large as its pictures, and a stream keeps its layout.
    const bool taken = format && (!now || (format->layout == now->format.layout &&
                                           format->picture.width == now->format.picture.width &&
                                           format->picture.height == now->format.picture.height));
    return taken ? S_OK : S_FALSE;
}

STDMETHODIMP CameraPin::EnumMediaTypes(IEnumMediaTypes** types)
{
    if (types == nullptr) {
        return E_POINTER;
    }
    *types = nullptr;
    return withoutThrowing([&] {
        const auto choice = chosen();
        *types =
            new MediaTypeEnumerator(choice ? std::vector<StreamFormat>{*choice} : lookUpFormats());
        return S_OK;
    });
}

STDMETHODIMP CameraPin::QueryInternalConnections(IPin** /*pins*/, ULONG* /*count*/)
{
    return E_NOTIMPL;
}

STDMETHODIMP CameraPin::EndOfStream()
{
    return E_UNEXPECTED;
}

STDMETHODIMP CameraPin::BeginFlush()
{
    return E_UNEXPECTED;
}

STDMETHODIMP CameraPin::EndFlush()
{
    return E_UNEXPECTED;
}

STDMETHODIMP CameraPin::NewSegment(REFERENCE_TIME /*start*/, REFERENCE_TIME /*stop*/,
                                   double /*rate*/)
{
    return S_OK;
}

STDMETHODIMP CameraPin::Set(REFGUID /*set*/, DWORD /*id*/, LPVOID /*instance*/,
                            DWORD /*instanceSize*/, LPVOID /*data*/, DWORD /*size*/)
{
    return E_NOTIMPL;
}

STDMETHODIMP CameraPin::Get(REFGUID set, DWORD id, LPVOID /*instance*/, DWORD /*instanceSize*/,
                            LPVOID data, DWORD size, DWORD* returned)
{
    if (set != AMPROPSETID_Pin) {
        return E_PROP_SET_UNSUPPORTED;
    }
    if (id != AMPROPERTY_PIN_CATEGORY) {
        return E_PROP_ID_UNSUPPORTED;
    }
    if (data == nullptr && returned == nullptr) {
        return E_POINTER;
    }
    if (returned != nullptr) {
        *returned = sizeof(GUID);
    }
    if (data == nullptr) { // asks for the size only
        return S_OK;
    }
    if (size < sizeof(GUID)) {
        return E_UNEXPECTED;
    }
    std::memcpy(data, &PIN_CATEGORY_CAPTURE, sizeof(GUID));
    return S_OK;
}

STDMETHODIMP CameraPin::QuerySupported(REFGUID set, DWORD id, DWORD* support)
{
    if (set != AMPROPSETID_Pin) {
        return E_PROP_SET_UNSUPPORTED;
    }
    if (id != AMPROPERTY_PIN_CATEGORY) {
        return E_PROP_ID_UNSUPPORTED;
    }
    if (support != nullptr) {
        *support = KSPROPERTY_SUPPORT_GET;
    }
    return S_OK;
}

STDMETHODIMP CameraPin::Notify(IBaseFilter* /*sender*/, Quality /*message*/)
{
    return S_OK;
}

STDMETHODIMP CameraPin::SetSink(IQualityControl* /*sink*/)
{
    return S_OK;
}

} // namespace pevrix
