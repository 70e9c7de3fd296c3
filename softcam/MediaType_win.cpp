#include "softcam/MediaType_win.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <utility>
// After windows.h, whose types they use.
#include <amvideo.h>
#include <uuids.h>

namespace pevrix {
namespace {

constexpr REFERENCE_TIME kSecond = 10'000'000; // in 100 ns
constexpr REFERENCE_TIME kDefaultInterval = kSecond / 30;
constexpr REFERENCE_TIME kShortestInterval = kSecond / 1000;

struct LayoutEntry
{
    PixelLayout layout;
    GUID subtype;
    DWORD compression; // that of the bitmap header; programs compare it with the subtype
    WORD bitsPerPixel;
};

constexpr GUID fourCc(DWORD code)
{
    return {code, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
}

constexpr DWORD kYuy2 = 0x32595559;
constexpr DWORD kNv12 = 0x3231564E;
constexpr DWORD kI420 = 0x30323449;

const std::array kLayouts{
    LayoutEntry{PixelLayout::Yuy2, fourCc(kYuy2), kYuy2, 16},
    LayoutEntry{PixelLayout::I420, fourCc(kI420), kI420, 12},
    LayoutEntry{PixelLayout::Nv12, fourCc(kNv12), kNv12, 12},
    LayoutEntry{PixelLayout::BgrBottomUp, MEDIASUBTYPE_RGB24, BI_RGB, 24},
};

const LayoutEntry* entryOf(PixelLayout layout)
{
    const auto found = std::ranges::find(kLayouts, layout, &LayoutEntry::layout);
    return found == kLayouts.end() ? nullptr : &*found;
}

const LayoutEntry* entryOf(const GUID& subtype)
{
    const auto found = std::ranges::find_if(
        kLayouts, [&](const LayoutEntry& entry) { return entry.subtype == subtype; });
    return found == kLayouts.end() ? nullptr : &*found;
}

bool isEmptyOrWhole(const RECT& part, const CameraFormat& picture)
{
    const bool empty = part.left == 0 && part.top == 0 && part.right == 0 && part.bottom == 0;
    const bool whole = part.left == 0 && part.top == 0 &&
                       part.right == static_cast<LONG>(picture.width) &&
                       part.bottom == static_cast<LONG>(picture.height);
    return empty || whole;
}

VIDEOINFOHEADER videoInfo(const StreamFormat& format, const LayoutEntry& entry)
{
    const auto size = static_cast<DWORD>(pictureSize(format.layout, format.picture));
    VIDEOINFOHEADER info{};
    info.AvgTimePerFrame = format.interval();
    const auto bits =
        std::uint64_t{size} * 8 * format.picture.rateNumerator / format.picture.rateDenominator;
    info.dwBitRate = static_cast<DWORD>(std::min<std::uint64_t>(bits, MAXLONG));
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = static_cast<LONG>(format.picture.width);
    info.bmiHeader.biHeight = static_cast<LONG>(format.picture.height);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = entry.bitsPerPixel;
    info.bmiHeader.biCompression = entry.compression;
    info.bmiHeader.biSizeImage = size;
    return info;
}

// What a header from outside says about the picture's size; empty when no picture has it.
std::optional<CameraFormat> sizeOf(const BITMAPINFOHEADER& header, PixelLayout layout)
{
    // A negative height turns a bitmap's rows around and means nothing to the others.
    LONG height = header.biHeight;
    if (height < 0 && height > -0x10000 && layout != PixelLayout::BgrBottomUp) {
        height = -height;
    }
    return cameraFormat(header.biWidth, height, 0);
}

// A media type as far as this camera understands it; the picture is the whole bitmap.
struct Described
{
    StreamFormat format;
    VIDEOINFOHEADER info{};

    // Whether what is to be shown is all of this picture.
    [[nodiscard]] bool shows(const CameraFormat& picture) const
    {
        return isEmptyOrWhole(info.rcSource, picture) && isEmptyOrWhole(info.rcTarget, picture);
    }
};

std::optional<Described> described(const AM_MEDIA_TYPE& type)
{
    const LayoutEntry* entry = entryOf(type.subtype);
    if (type.majortype != MEDIATYPE_Video || type.formattype != FORMAT_VideoInfo ||
        entry == nullptr || type.pbFormat == nullptr || type.cbFormat < sizeof(VIDEOINFOHEADER)) {
        return std::nullopt;
    }
    Described result;
    std::memcpy(&result.info, type.pbFormat, sizeof(result.info)); // it may not be aligned
    const BITMAPINFOHEADER& header = result.info.bmiHeader;
    const auto picture = sizeOf(header, entry->layout);
    if (!picture || !suits(entry->layout, *picture) || header.biCompression != entry->compression ||
        header.biBitCount != entry->bitsPerPixel) {
        return std::nullopt;
    }
    result.format = {entry->layout, *picture};
    return result;
}

} // namespace

void setInterval(CameraFormat& format, REFERENCE_TIME interval)
{
    const REFERENCE_TIME wanted = interval > 0 ? interval : kDefaultInterval;
    const auto within = static_cast<std::uint32_t>(std::clamp(wanted, kShortestInterval, kSecond));
    const auto divisor = std::gcd(within, static_cast<std::uint32_t>(kSecond));
    format.rateNumerator = static_cast<std::uint32_t>(kSecond) / divisor;
    format.rateDenominator = within / divisor;
}

MediaType::MediaType(MediaType&& other) noexcept
    : m_type(other.release())
{}

MediaType::~MediaType()
{
    CoTaskMemFree(m_type.pbFormat);
}

MediaType MediaType::of(const StreamFormat& format)
{
    MediaType type;
    const LayoutEntry* entry = entryOf(format.layout);
    void* memory = entry == nullptr ? nullptr : CoTaskMemAlloc(sizeof(VIDEOINFOHEADER));
    if (memory == nullptr) {
        return type;
    }
    const VIDEOINFOHEADER info = videoInfo(format, *entry);
    std::memcpy(memory, &info, sizeof(info));
    type.m_type.majortype = MEDIATYPE_Video;
    type.m_type.subtype = entry->subtype;
    type.m_type.bFixedSizeSamples = TRUE;
    type.m_type.lSampleSize = info.bmiHeader.biSizeImage;
    type.m_type.formattype = FORMAT_VideoInfo;
    type.m_type.cbFormat = sizeof(VIDEOINFOHEADER);
    type.m_type.pbFormat = static_cast<BYTE*>(memory);
    return type;
}

AM_MEDIA_TYPE MediaType::release()
{
    return std::exchange(m_type, {});
}

AM_MEDIA_TYPE* MediaType::allocate(const StreamFormat& format)
{
    MediaType type = of(format);
    auto* memory =
        type ? static_cast<AM_MEDIA_TYPE*>(CoTaskMemAlloc(sizeof(AM_MEDIA_TYPE))) : nullptr;
    if (memory != nullptr) {
        *memory = type.release();
    }
    return memory;
}

void MediaType::free(AM_MEDIA_TYPE* type)
{
    if (type != nullptr) {
        CoTaskMemFree(type->pbFormat);
        if (type->pUnk != nullptr) {
            type->pUnk->Release();
        }
        CoTaskMemFree(type);
    }
}

std::optional<StreamFormat> streamFormatOf(const AM_MEDIA_TYPE& type)
{
    auto result = described(type);
    if (!result || !result->shows(result->format.picture)) {
        return std::nullopt;
    }
    setInterval(result->format.picture, result->info.AvgTimePerFrame);
    return result->format;
}

std::optional<std::uint32_t> rowWidthOf(const AM_MEDIA_TYPE& type, const StreamFormat& format)
{
    const auto result = described(type);
    if (!result || result->format.layout != format.layout ||
        result->format.picture.height != format.picture.height ||
        result->format.picture.width < format.picture.width || !result->shows(format.picture)) {
        return std::nullopt;
    }
    return result->format.picture.width;
}

bool matches(const AM_MEDIA_TYPE& partial, const StreamFormat& format)
{
    const LayoutEntry* entry = entryOf(format.layout);
    const auto fits = [](const GUID& wanted, const GUID& own) {
        return wanted == GUID_NULL || wanted == own;
    };
    return entry != nullptr && fits(partial.majortype, MEDIATYPE_Video) &&
           fits(partial.subtype, entry->subtype) && fits(partial.formattype, FORMAT_VideoInfo);
}

} // namespace pevrix
