#include "tools/camreader/MediaType_win.h"

#include <cstring>
#include <dvdmedia.h>

namespace pevrix {

namespace {

constexpr GUID fourccSubtype(DWORD code)
{
    return {code, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
}

constexpr DWORD fourcc(const char (&name)[5])
{
    return static_cast<DWORD>(static_cast<unsigned char>(name[0])) |
           static_cast<DWORD>(static_cast<unsigned char>(name[1])) << 8 |
           static_cast<DWORD>(static_cast<unsigned char>(name[2])) << 16 |
           static_cast<DWORD>(static_cast<unsigned char>(name[3])) << 24;
}

struct KnownSubtype
{
    RawLayout layout;
    GUID subtype;
    DWORD compression;
    WORD bits;
};

const KnownSubtype kKnown[] = {
    {RawLayout::Yuy2, fourccSubtype(fourcc("YUY2")), fourcc("YUY2"), 16},
    {RawLayout::I420, fourccSubtype(fourcc("I420")), fourcc("I420"), 12},
    {RawLayout::Nv12, fourccSubtype(fourcc("NV12")), fourcc("NV12"), 12},
    {RawLayout::Rgb24, MEDIASUBTYPE_RGB24, BI_RGB, 24},
};

} // namespace

void FreeMediaType::operator()(AM_MEDIA_TYPE* type) const
{
    clearMediaType(*type);
    CoTaskMemFree(type);
}

void clearMediaType(AM_MEDIA_TYPE& type)
{
    CoTaskMemFree(type.pbFormat);
    if (type.pUnk) {
        type.pUnk->Release();
    }
    type = {};
}

bool copyMediaType(AM_MEDIA_TYPE& to, const AM_MEDIA_TYPE& from)
{
    clearMediaType(to);
    auto* format = static_cast<BYTE*>(CoTaskMemAlloc(from.cbFormat));
    if (!format) {
        return false;
    }
    std::memcpy(format, from.pbFormat, from.cbFormat);
    to = from;
    to.pbFormat = format;
    to.pUnk = nullptr;
    return true;
}

VideoFormat videoFormat(const AM_MEDIA_TYPE& type)
{
    if (type.majortype != MEDIATYPE_Video || type.formattype != FORMAT_VideoInfo ||
        !type.pbFormat || type.cbFormat < sizeof(VIDEOINFOHEADER)) {
        return {};
    }
    VIDEOINFOHEADER info;
    std::memcpy(&info, type.pbFormat, sizeof info);
    const BITMAPINFOHEADER& header = info.bmiHeader;
    for (const KnownSubtype& known : kKnown) {
        if (type.subtype != known.subtype) {
            continue;
        }
        const auto size = layoutSize(known.layout, header.biWidth, header.biHeight);
        // What browsers compare before they take a format.
        const bool consistent = header.biWidth > 0 && header.biHeight > 0 &&
                                header.biCompression == known.compression &&
                                header.biBitCount == known.bits && header.biSizeImage == size &&
                                type.lSampleSize == size && type.bFixedSizeSamples;
        return {consistent ? known.layout : RawLayout::None, header.biWidth, header.biHeight,
                info.AvgTimePerFrame};
    }
    return {};
}

} // namespace pevrix
