#include "video/DecoderOutput_win.h"
#include "video/H264Decoder.h"

#include <algorithm>
#include <cstring>
#include <limits>
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

constexpr std::uint64_t packed(std::uint32_t upper, std::uint32_t lower)
{
    return std::uint64_t{upper} << 32 | lower;
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

} // namespace

// Lives from the first initialize() to the end of the decoder, because Media Foundation stays
// started; whether the decoder is initialised is whether it holds a transform.
struct H264Decoder::BackEnd
{
    MediaPlatform platform;
    ComPtr<IMFTransform> transform;
    DecoderOutput output;
    ComPtr<IMFMediaBuffer> outputBuffer; // of ours, until the transform keeps it or needs more

    [[nodiscard]] bool open(std::uint32_t width, std::uint32_t height);
    void tearDown();

    [[nodiscard]] ComPtr<IMFSample> makeSample();
    [[nodiscard]] HRESULT nextOutput(ComPtr<IMFSample>& picture);
    void giveUpOutput(HRESULT reason);
};

bool H264Decoder::BackEnd::open(std::uint32_t width, std::uint32_t height)
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
    output.width = width;
    output.height = height;
    if (inputType == nullptr || FAILED(transform->SetInputType(0, inputType.Get(), 0)) ||
        !output.negotiate(*transform.Get())) {
        return false;
    }
    transform->ProcessMessage(MFT_MESSAGE_NOTIFY_BEGIN_STREAMING, 0);
    transform->ProcessMessage(MFT_MESSAGE_NOTIFY_START_OF_STREAM, 0);
    return true;
}

void H264Decoder::BackEnd::tearDown()
{
    if (transform != nullptr) {
        transform->ProcessMessage(MFT_MESSAGE_NOTIFY_END_OF_STREAM, 0);
        transform->ProcessMessage(MFT_MESSAGE_COMMAND_FLUSH, 0);
        transform.Reset();
    }
    output = {};
    outputBuffer.Reset();
}

// In a new sample, so that it has no time of an earlier picture. The memory is made anew only when
// it must be: the system would zero some megabytes for each picture.
ComPtr<IMFSample> H264Decoder::BackEnd::makeSample()
{
    const DWORD bytes = std::min(output.bufferSize, DecoderOutput::kMaxBytes);
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
    if (!output.transformAllocates) {
        ours = makeSample();
        if (ours == nullptr) {
            return E_OUTOFMEMORY;
        }
    }
    MFT_OUTPUT_DATA_BUFFER data{};
    data.pSample = ours.Get();
    DWORD status = 0;
    const HRESULT result = transform->ProcessOutput(0, 1, &data, &status);
    ComPtr<IMFCollection> events;
    events.Attach(data.pEvents);
    if (data.pSample == ours.Get()) {
        picture = std::move(ours);
    } else {
        picture.Attach(data.pSample);
    }
    return result;
}

// The picture is too large for the memory that it was given. As long as the transform keeps it, it
// refuses all further input.
void H264Decoder::BackEnd::giveUpOutput(HRESULT reason)
{
    if (reason != MF_E_TRANSFORM_NEED_MORE_INPUT && !output.sizeAllowed()) {
        transform->ProcessMessage(MFT_MESSAGE_COMMAND_FLUSH, 0);
    }
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
    if (!m_backEnd->open(width, height)) {
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
        DecoderOutput& output = m_backEnd->output;
        ComPtr<IMFSample> picture;
        const HRESULT result = m_backEnd->nextOutput(picture);
        if (result == MF_E_TRANSFORM_STREAM_CHANGE) {
            picture.Reset();
            static_cast<void>(output.negotiate(*m_backEnd->transform.Get()));
            continue;
        }
        if (FAILED(result)) {
            m_backEnd->giveUpOutput(result);
            return;
        }
        if (picture == nullptr || !m_onFrame || !output.convert(*picture.Get(), m_bgr)) {
            continue;
        }
        LONGLONG time = 0;
        if (FAILED(picture->GetSampleTime(&time))) {
            time = 0;
        }
        m_onFrame(m_bgr.data(), static_cast<int>(output.width), static_cast<int>(output.height),
                  time / kTicksPerMicrosecond);
    }
}

H264Decoder::Size H264Decoder::shownSize() const
{
    return m_backEnd != nullptr ? m_backEnd->output.shown : Size{};
}

void H264Decoder::reset()
{
    if (m_backEnd != nullptr) {
        m_backEnd->tearDown();
    }
}

} // namespace pevrix
