#include "softcam/CameraPin_win.h"

#include "softcam/CameraFilter_win.h"
#include "softcam/CameraReader_win.h"
#include "softcam/ListEnumerator_win.h"

#include <algorithm>
#include <array>
#include <cstring>
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

// The best first: what browsers take, then what the others know.
constexpr std::array kOfferedLayouts{PixelLayout::Yuy2, PixelLayout::I420, PixelLayout::Nv12,
                                     PixelLayout::BgrBottomUp};
constexpr std::array<std::pair<std::uint32_t, std::uint32_t>, 3> kUsualSizes{
    {{1280, 720}, {1920, 1080}, {640, 480}}};

constexpr REFERENCE_TIME kShortestInterval = 10'000'000 / 60; // that a program is told of
constexpr REFERENCE_TIME kLongestInterval = 10'000'000;

void addSize(std::vector<StreamFormat>& formats, const CameraFormat& size)
{
    const bool isThere = std::ranges::any_of(formats, [&](const StreamFormat& format) {
        return format.picture.width == size.width && format.picture.height == size.height;
    });
    for (const PixelLayout layout : kOfferedLayouts) {
        if (!isThere && suits(layout, size)) {
            formats.push_back({layout, size});
        }
    }
}

std::vector<StreamFormat> offeredFormats()
{
    const auto camera = presentCamera();
    std::vector<StreamFormat> formats;
    if (camera) {
        addSize(formats, *camera);
    }
    for (const auto& [width, height] : kUsualSizes) {
        CameraFormat size = camera.value_or(CameraFormat{.rateNumerator = 30});
        size.width = width;
        size.height = height;
        addSize(formats, size);
    }
    return formats;
}

VIDEO_STREAM_CONFIG_CAPS capabilitiesOf(const StreamFormat& format)
{
    const SIZE size{static_cast<LONG>(format.picture.width),
                    static_cast<LONG>(format.picture.height)};
    const auto bits = std::uint64_t{pictureSize(format.layout, format.picture)} * 8;
    const auto bitsAt = [&](REFERENCE_TIME interval) {
        const auto perSecond = bits * 10'000'000 / static_cast<std::uint64_t>(interval);
        return static_cast<LONG>(std::min<std::uint64_t>(perSecond, MAXLONG));
    };
    VIDEO_STREAM_CONFIG_CAPS caps{};
    caps.guid = FORMAT_VideoInfo;
    caps.InputSize = caps.MinCroppingSize = caps.MaxCroppingSize = size;
    caps.MinOutputSize = caps.MaxOutputSize = size;
    caps.CropGranularityX = caps.CropGranularityY = 1;
    caps.CropAlignX = caps.CropAlignY = 1;
    caps.MinFrameInterval = std::min(kShortestInterval, format.interval());
    caps.MaxFrameInterval = kLongestInterval;
    caps.MinBitsPerSecond = bitsAt(caps.MaxFrameInterval);
    caps.MaxBitsPerSecond = bitsAt(caps.MinFrameInterval);
    return caps;
}

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

CameraPin::CameraPin(CameraFilter& filter)
    : m_filter(filter)
{}

HRESULT CameraPin::startStream()
{
    auto target = connection();
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

STDMETHODIMP CameraPin::ReceiveConnection(IPin* /*peer*/, const AM_MEDIA_TYPE* /*type*/)
{
    return E_UNEXPECTED;
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

STDMETHODIMP CameraPin::SetFormat(AM_MEDIA_TYPE* type)
{
    const std::lock_guard lock(m_filter.stateLock());
    if (!m_filter.isStopped()) {
        return VFW_E_NOT_STOPPED;
    }
    const auto format = type == nullptr ? std::nullopt : streamFormatOf(*type);
    if (type != nullptr && !format) {
        return VFW_E_INVALIDMEDIATYPE;
    }
    if (format && connection()) {
        return reconnect(*type, *format);
    }
    const std::lock_guard own(m_lock);
    m_chosen = format;
    return S_OK;
}

HRESULT CameraPin::reconnect(const AM_MEDIA_TYPE& type, const StreamFormat& format)
{
    const auto graph = m_filter.graph();
    if (!graph) {
        return VFW_E_NOT_IN_GRAPH;
    }
    if (connection()->peer->QueryAccept(&type) != S_OK) {
        return VFW_E_INVALIDMEDIATYPE;
    }
    const auto before = chosen();
    {
        const std::lock_guard own(m_lock);
        m_chosen = format;
    }
    const HRESULT result = graph->Reconnect(this);
    if (FAILED(result)) {
        const std::lock_guard own(m_lock);
        m_chosen = before;
    }
    return result;
}

STDMETHODIMP CameraPin::GetFormat(AM_MEDIA_TYPE** type)
{
    if (type == nullptr) {
        return E_POINTER;
    }
    *type = nullptr;
    return withoutThrowing([&] {
        const auto choice = chosen();
        const auto now = connection();
        const StreamFormat format = choice ? *choice : now ? now->format : lookUpFormats().front();
        *type = MediaType::allocate(format);
        return *type == nullptr ? E_OUTOFMEMORY : S_OK;
    });
}

STDMETHODIMP CameraPin::GetNumberOfCapabilities(int* count, int* size)
{
    if (count == nullptr || size == nullptr) {
        return E_POINTER;
    }
    return withoutThrowing([&] {
        *count = static_cast<int>(lookUpFormats().size());
        *size = sizeof(VIDEO_STREAM_CONFIG_CAPS);
        return S_OK;
    });
}

STDMETHODIMP CameraPin::GetStreamCaps(int index, AM_MEDIA_TYPE** type, BYTE* capabilities)
{
    if (type == nullptr || capabilities == nullptr) {
        return E_POINTER;
    }
    *type = nullptr;
    if (index < 0) {
        return E_INVALIDARG;
    }
    return withoutThrowing([&] {
        const auto all = formats();
        if (static_cast<std::size_t>(index) >= all.size()) {
            return S_FALSE;
        }
        const StreamFormat& format = all[static_cast<std::size_t>(index)];
        *type = MediaType::allocate(format);
        if (*type == nullptr) {
            return E_OUTOFMEMORY;
        }
        const VIDEO_STREAM_CONFIG_CAPS caps = capabilitiesOf(format);
        std::memcpy(capabilities, &caps, sizeof(caps));
        return S_OK;
    });
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

std::vector<StreamFormat> CameraPin::lookUpFormats()
{
    auto all = offeredFormats();
    const std::lock_guard lock(m_lock);
    m_formats = all;
    return all;
}

std::vector<StreamFormat> CameraPin::formats()
{
    {
        const std::lock_guard lock(m_lock);
        if (!m_formats.empty()) {
            return m_formats;
        }
    }
    return lookUpFormats();
}

std::optional<CameraPin::Connection> CameraPin::connection()
{
    const std::lock_guard lock(m_lock);
    return m_connection;
}

std::optional<StreamFormat> CameraPin::chosen()
{
    const std::lock_guard lock(m_lock);
    return m_chosen;
}

void CameraPin::setConnection(std::optional<Connection> connection)
{
    // What it was is released after the lock.
    const std::lock_guard lock(m_lock);
    m_connection.swap(connection);
}

} // namespace pevrix
