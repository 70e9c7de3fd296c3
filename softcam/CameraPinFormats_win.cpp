// What the pin offers, and what a program chooses from it.
#include "softcam/CameraFilter_win.h"
#include "softcam/CameraPin_win.h"
#include "softcam/CameraReader_win.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <utility>
// After windows.h, whose types they use.
#include <uuids.h>
#include <vfwmsgs.h>

namespace pevrix {
namespace {

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

} // namespace

STDMETHODIMP CameraPin::SetFormat(AM_MEDIA_TYPE* type)
{
    std::optional<StreamFormat> format;
    std::optional<Connection> now;
    {
        const std::lock_guard lock(m_filter.stateLock());
        if (!m_filter.isStopped()) {
            return VFW_E_NOT_STOPPED;
        }
        format = type == nullptr ? std::nullopt : streamFormatOf(*type);
        if (type != nullptr && !format) {
            return VFW_E_INVALIDMEDIATYPE;
        }
        now = connection();
        if (!format || !now) {
            const std::lock_guard own(m_lock);
            m_chosen = format;
            return S_OK;
        }
    }
    return reconnect(*now->peer.Get(), *type, *format);
}

// Without the state lock: the graph has one of its own, which it holds when it changes our state.
HRESULT CameraPin::reconnect(IPin& peer, const AM_MEDIA_TYPE& type, const StreamFormat& format)
{
    const auto graph = m_filter.graph();
    if (!graph) {
        return VFW_E_NOT_IN_GRAPH;
    }
    if (peer.QueryAccept(&type) != S_OK) {
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

std::optional<StreamFormat> CameraPin::chosen()
{
    const std::lock_guard lock(m_lock);
    return m_chosen;
}

} // namespace pevrix
