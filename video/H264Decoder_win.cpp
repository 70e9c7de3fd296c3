#include "picture/PictureSize.h"
#include "video/ColorConversion.h"
#include "video/H264Decoder.h"
#include "video/MediaFoundation_win.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace pevrix {

namespace {

using Microsoft::WRL::ComPtr;

// The platform counts time in units of 100 nanoseconds.
constexpr std::int64_t kTicksPerMicrosecond = 10;
// One thirtieth of a second. The transform wants a duration and does nothing with it.
constexpr LONGLONG kNominalDuration = 333333;

// A transform has at most 16 pictures to give at a time, and changes its output type once before
// the first of them. One that goes on for longer is broken and must not hang the program.
constexpr int kMaxPassesPerDrain = 200;
// The same for one that refuses input although it has no output.
constexpr int kMaxRefusals = 50;
// And for one that offers output types without end.
constexpr DWORD kMaxOutputTypes = 100;
// A picture of the largest size that is delivered, however the transform aligns it.
constexpr std::uint32_t kMaxOutputBytes = 64 * 1024 * 1024;

constexpr std::uint64_t packed(std::uint32_t upper, std::uint32_t lower)
{
    return std::uint64_t{upper} << 32 | lower;
}

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

// Whether all references but the caller's one are gone.
bool isOnlyOurs(IUnknown& object)
{
    object.AddRef();
    return object.Release() == 1;
}

ComPtr<IMFSample> makeInputSample(std::span<const std::uint8_t> data, std::int64_t timestampUs)
{
    if (data.size() > std::numeric_limits<DWORD>::max()) {
        return nullptr;
    }
    const auto size = static_cast<DWORD>(data.size());
    ComPtr<IMFSample> sample;
    ComPtr<IMFMediaBuffer> buffer;
    if (FAILED(mediaFunctions().createMemoryBuffer(size, &buffer)) ||
        FAILED(mediaFunctions().createSample(&sample))) {
        return nullptr;
    }
    {
        const LockedBuffer locked(buffer.Get());
        if (locked.bytes().size() < data.size()) {
            return nullptr;
        }
        std::memcpy(locked.bytes().data(), data.data(), data.size());
    }
    buffer->SetCurrentLength(size);
    sample->AddBuffer(buffer.Get());
    constexpr std::int64_t kLatest = std::numeric_limits<LONGLONG>::max() / kTicksPerMicrosecond;
    sample->SetSampleTime(std::clamp(timestampUs, -kLatest, kLatest) * kTicksPerMicrosecond);
    sample->SetSampleDuration(kNominalDuration);
    return sample;
}

ComPtr<IMFMediaType> makeInputType(std::uint32_t width, std::uint32_t height)
{
    ComPtr<IMFMediaType> type;
    if (FAILED(mediaFunctions().createMediaType(&type))) {
        return nullptr;
    }
    type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
    type->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_H264);
    type->SetUINT64(MF_MT_FRAME_SIZE, packed(width, height));
    type->SetUINT64(MF_MT_FRAME_RATE, packed(30, 1)); // nominal, whatever the phone sends
    type->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
    return type;
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

// Lives from the first initialize() to the end of the decoder, because Media Foundation stays
// started; whether the decoder is initialised is whether it holds a transform.
struct H264Decoder::BackEnd
{
    MediaPlatform platform;
    ComPtr<IMFTransform> transform;
    std::uint32_t width = 0; // of the picture, in pixels
    std::uint32_t height = 0;
    std::uint32_t stride = 0; // bytes from one row of luma to the next
    std::uint32_t outputBufferSize = 0;
    bool transformAllocates = false;     // the output samples
    ComPtr<IMFMediaBuffer> outputBuffer; // of ours, until the transform keeps it or needs more
    Size shown;                          // the part of the picture that is meant to be seen

    [[nodiscard]] bool open();
    [[nodiscard]] bool negotiateOutput();
    void readShownSize(IMFMediaType& type);
    void readOutputStreamInfo();
    void tearDown();

    [[nodiscard]] ComPtr<IMFSample> makeSample();
    [[nodiscard]] HRESULT nextOutput(ComPtr<IMFSample>& picture);
    void giveUpOutput(HRESULT reason);
    [[nodiscard]] bool sizeAllowed() const
    {
        return isPictureSize(static_cast<int>(width), static_cast<int>(height));
    }
    [[nodiscard]] bool convert(IMFSample& picture, std::vector<std::uint8_t>& bgr) const;
};

bool H264Decoder::BackEnd::open()
{
    const HRESULT created = CoCreateInstance(CLSID_CMSH264DecoderMFT, nullptr, CLSCTX_INPROC_SERVER,
                                             IID_PPV_ARGS(&transform));
    if (FAILED(created) || transform == nullptr) {
        transform.Reset();
        return false;
    }
    // A picture for each access unit, at once.
    ComPtr<IMFAttributes> attributes;
    if (SUCCEEDED(transform->GetAttributes(&attributes)) && attributes != nullptr) {
        attributes->SetUINT32(CODECAPI_AVLowLatencyMode, 1);
    }
    const ComPtr<IMFMediaType> inputType = makeInputType(width, height);
    if (inputType == nullptr || FAILED(transform->SetInputType(0, inputType.Get(), 0)) ||
        !negotiateOutput()) {
        return false;
    }
    transform->ProcessMessage(MFT_MESSAGE_NOTIFY_BEGIN_STREAMING, 0);
    transform->ProcessMessage(MFT_MESSAGE_NOTIFY_START_OF_STREAM, 0);
    return true;
}

// Takes the first NV12 type that the transform offers, and its size and stride. Those count even if
// the transform then refuses the type.
bool H264Decoder::BackEnd::negotiateOutput()
{
    const ComPtr<IMFMediaType> type = firstNv12Type(*transform.Get());
    if (type == nullptr) {
        return false;
    }
    const HRESULT set = transform->SetOutputType(0, type.Get(), 0);
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
    readOutputStreamInfo();
    return true;
}

// Windows' decoder delivers whole macroblocks and tells here which of their rows and columns count.
void H264Decoder::BackEnd::readShownSize(IMFMediaType& type)
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

void H264Decoder::BackEnd::readOutputStreamInfo()
{
    MFT_OUTPUT_STREAM_INFO info{};
    if (FAILED(transform->GetOutputStreamInfo(0, &info))) {
        info = {};
    }
    transformAllocates = (info.dwFlags & (MFT_OUTPUT_STREAM_PROVIDES_SAMPLES |
                                          MFT_OUTPUT_STREAM_CAN_PROVIDE_SAMPLES)) != 0;
    outputBufferSize = info.cbSize;
    if (outputBufferSize == 0 && sizeAllowed()) {
        const std::uint64_t needed =
            std::max(nv12Rows(height) * stride, nv12Extent(width, height, stride));
        outputBufferSize =
            static_cast<std::uint32_t>(std::min<std::uint64_t>(needed, kMaxOutputBytes));
    }
}

void H264Decoder::BackEnd::tearDown()
{
    if (transform != nullptr) {
        transform->ProcessMessage(MFT_MESSAGE_NOTIFY_END_OF_STREAM, 0);
        transform->ProcessMessage(MFT_MESSAGE_COMMAND_FLUSH, 0);
        transform.Reset();
    }
    stride = 0;
    outputBufferSize = 0;
    transformAllocates = false;
    outputBuffer.Reset();
    shown = {};
}

// In a new sample, so that it has no time of an earlier picture. The memory is made anew only when
// it must be: the system would zero some megabytes for each picture.
ComPtr<IMFSample> H264Decoder::BackEnd::makeSample()
{
    const DWORD bytes = std::min(outputBufferSize, kMaxOutputBytes);
    DWORD has = 0;
    if (outputBuffer != nullptr && (!isOnlyOurs(*outputBuffer.Get()) ||
                                    FAILED(outputBuffer->GetMaxLength(&has)) || has < bytes)) {
        outputBuffer.Reset();
    }
    ComPtr<IMFSample> sample;
    if (FAILED(mediaFunctions().createSample(&sample)) ||
        (outputBuffer == nullptr &&
         FAILED(mediaFunctions().createMemoryBuffer(bytes, &outputBuffer)))) {
        return nullptr;
    }
    outputBuffer->SetCurrentLength(0);
    return SUCCEEDED(sample->AddBuffer(outputBuffer.Get())) ? sample : nullptr;
}

// One call for output. `picture` stays null when the transform reports success without one.
HRESULT H264Decoder::BackEnd::nextOutput(ComPtr<IMFSample>& picture)
{
    ComPtr<IMFSample> ours;
    if (!transformAllocates) {
        ours = makeSample();
        if (ours == nullptr) {
            return E_OUTOFMEMORY;
        }
    }
    MFT_OUTPUT_DATA_BUFFER output{};
    output.pSample = ours.Get();
    DWORD status = 0;
    const HRESULT result = transform->ProcessOutput(0, 1, &output, &status);
    ComPtr<IMFCollection> events;
    events.Attach(output.pEvents);
    if (output.pSample == ours.Get()) {
        picture = std::move(ours);
    } else {
        picture.Attach(output.pSample);
    }
    return result;
}

// The picture is too large for the memory that it was given. As long as the transform keeps it, it
// refuses all further input.
void H264Decoder::BackEnd::giveUpOutput(HRESULT reason)
{
    if (reason != MF_E_TRANSFORM_NEED_MORE_INPUT && !sizeAllowed()) {
        transform->ProcessMessage(MFT_MESSAGE_COMMAND_FLUSH, 0);
    }
}

bool H264Decoder::BackEnd::convert(IMFSample& picture, std::vector<std::uint8_t>& bgr) const
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

H264Decoder::H264Decoder(FrameCallback onFrame)
    : m_onFrame(std::move(onFrame))
{}

H264Decoder::~H264Decoder()
{
    reset();
}

void H264Decoder::setFrameCallback(FrameCallback onFrame)
{
    m_onFrame = std::move(onFrame);
}

bool H264Decoder::initialize(std::uint32_t width, std::uint32_t height)
{
    reset();
    // The thread may be in an apartment already, of either kind: both will do.
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (m_backEnd == nullptr) {
        m_backEnd = std::make_unique<BackEnd>();
    }
    if (!m_backEnd->platform.start(MFSTARTUP_LITE)) {
        return false;
    }
    m_backEnd->width = width;
    m_backEnd->height = height;
    if (!m_backEnd->open()) {
        reset();
        return false;
    }
    return true;
}

bool H264Decoder::initialized() const
{
    return m_backEnd != nullptr && m_backEnd->transform != nullptr;
}

void H264Decoder::feed(std::span<const std::uint8_t> data, std::int64_t timestampUs)
{
    if (!initialized() || data.empty()) {
        return;
    }
    ComPtr<IMFSample> sample = makeInputSample(data, timestampUs);
    if (sample == nullptr) {
        return;
    }
    HRESULT result = m_backEnd->transform->ProcessInput(0, sample.Get(), 0);
    for (int i = 0; result == MF_E_NOTACCEPTING && i < kMaxRefusals; ++i) {
        drain();
        result = m_backEnd->transform->ProcessInput(0, sample.Get(), 0);
    }
    sample.Reset();
    drain();
}

void H264Decoder::drain()
{
    for (int pass = 0; pass < kMaxPassesPerDrain && initialized(); ++pass) {
        ComPtr<IMFSample> picture;
        const HRESULT result = m_backEnd->nextOutput(picture);
        if (result == MF_E_TRANSFORM_STREAM_CHANGE) {
            picture.Reset();
            static_cast<void>(m_backEnd->negotiateOutput());
            continue;
        }
        if (FAILED(result)) {
            m_backEnd->giveUpOutput(result);
            return;
        }
        if (picture == nullptr || !m_onFrame || !m_backEnd->convert(*picture.Get(), m_bgr)) {
            continue;
        }
        LONGLONG time = 0;
        if (FAILED(picture->GetSampleTime(&time))) {
            time = 0;
        }
        m_onFrame(m_bgr.data(), static_cast<int>(m_backEnd->width),
                  static_cast<int>(m_backEnd->height), time / kTicksPerMicrosecond);
    }
}

H264Decoder::Size H264Decoder::shownSize() const
{
    return m_backEnd != nullptr ? m_backEnd->shown : Size{};
}

void H264Decoder::reset()
{
    if (m_backEnd != nullptr) {
        m_backEnd->tearDown();
    }
}

} // namespace pevrix
