#include "video/DecoderOutput_win.h"

#include "picture/PictureSize.h"
#include "video/ColorConversion.h"

#include <algorithm>
#include <new>

namespace pevrix {

namespace {

using Microsoft::WRL::ComPtr;

// A transform that offers output types without end is broken and must not hang the program.
constexpr DWORD kMaxOutputTypes = 100;

// The rows of an NV12 picture: luma, then half as many of chroma, rounded up.
constexpr std::uint64_t nv12Rows(std::uint32_t height)
{
    return std::uint64_t{height} + (std::uint64_t{height} + 1) / 2;
}

// How far an NV12 picture that is not empty reaches in memory. Its last row need not be padded, but
// holds a whole pair of chroma samples for a last pixel without a neighbour.
constexpr std::uint64_t nv12Extent(std::uint32_t width, std::uint32_t height, std::uint32_t pitch)
{
    return (nv12Rows(height) - 1) * pitch + (std::uint64_t{width} + 1) / 2 * 2;
}

ComPtr<IMFMediaType> firstNv12Type(IMFTransform& transform)
{
    for (DWORD index = 0; index < kMaxOutputTypes; ++index) {
        ComPtr<IMFMediaType> type;
        if (FAILED(transform.GetOutputAvailableType(0, index, &type)) || type == nullptr) {
            return nullptr;
        }
        GUID subtype{};
        if (SUCCEEDED(type->GetGUID(MF_MT_SUBTYPE, &subtype)) &&
            IsEqualGUID(subtype, MFVideoFormat_NV12)) {
            return type;
        }
    }
    return nullptr;
}

} // namespace

bool DecoderOutput::negotiate(IMFTransform& transform)
{
    const ComPtr<IMFMediaType> type = firstNv12Type(transform);
    if (type == nullptr) {
        return false;
    }
    const HRESULT set = transform.SetOutputType(0, type.Get(), 0);
    UINT64 size = 0;
    if (SUCCEEDED(type->GetUINT64(MF_MT_FRAME_SIZE, &size)) && size >> 32 != 0 &&
        (size & 0xffffffff) != 0) {
        width = static_cast<std::uint32_t>(size >> 32);
        height = static_cast<std::uint32_t>(size & 0xffffffff);
    }
    readShownSize(*type.Get());
    UINT32 declaredStride = 0;
    if (FAILED(type->GetUINT32(MF_MT_DEFAULT_STRIDE, &declaredStride)) || declaredStride == 0) {
        declaredStride = width;
    }
    stride = declaredStride;
    if (FAILED(set)) {
        return false;
    }
    readStreamInfo(transform);
    return true;
}

// Windows' decoder delivers whole macroblocks and tells here which of their rows and columns count.
void DecoderOutput::readShownSize(IMFMediaType& type)
{
    shown = {static_cast<int>(width), static_cast<int>(height)};
    MFVideoArea area{};
    UINT32 size = 0;
    if (SUCCEEDED(type.GetBlob(MF_MT_MINIMUM_DISPLAY_APERTURE, reinterpret_cast<UINT8*>(&area),
                               sizeof(area), &size)) &&
        size == sizeof(area) && area.Area.cx > 0 && area.Area.cx <= shown.width &&
        area.Area.cy > 0 && area.Area.cy <= shown.height) {
        shown = {area.Area.cx, area.Area.cy};
    }
}

void DecoderOutput::readStreamInfo(IMFTransform& transform)
{
    MFT_OUTPUT_STREAM_INFO info{};
    if (FAILED(transform.GetOutputStreamInfo(0, &info))) {
        info = {};
    }
    transformAllocates = (info.dwFlags & (MFT_OUTPUT_STREAM_PROVIDES_SAMPLES |
                                          MFT_OUTPUT_STREAM_CAN_PROVIDE_SAMPLES)) != 0;
    bufferSize = info.cbSize;
    if (bufferSize == 0 && sizeAllowed()) {
        const std::uint64_t needed =
            std::max(nv12Rows(height) * stride, nv12Extent(width, height, stride));
        bufferSize = static_cast<std::uint32_t>(std::min<std::uint64_t>(needed, kMaxBytes));
    }
}

bool DecoderOutput::sizeAllowed() const
{
    return isPictureSize(static_cast<int>(width), static_cast<int>(height));
}

bool DecoderOutput::convert(IMFSample& picture, std::vector<std::uint8_t>& bgr) const
try {
    ComPtr<IMFMediaBuffer> buffer;
    if (!sizeAllowed() || FAILED(picture.ConvertToContiguousBuffer(&buffer))) {
        return false;
    }
    const LockedBuffer locked(buffer.Get());
    if (locked.bytes().size() < nv12Extent(width, height, stride)) {
        return false;
    }
    bgr.resize(pictureBytes(static_cast<int>(width), static_cast<int>(height)));
    const std::ptrdiff_t pitch = stride;
    const std::uint8_t* luma = locked.bytes().data();
    convertToBgr(Nv12Picture{.y = luma,
                             .uv = luma + pitch * static_cast<std::ptrdiff_t>(height),
                             .yStride = pitch,
                             .uvStride = pitch,
                             .width = static_cast<int>(width),
                             .height = static_cast<int>(height)},
                 bgr.data());
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace pevrix
