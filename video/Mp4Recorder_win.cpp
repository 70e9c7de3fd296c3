#include "video/Mp4Recorder.h"
#include "video/Mp4RecorderPlatform_win.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace pevrix {

namespace {

using Microsoft::WRL::ComPtr;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t kBytesPerPixel = 4; // of what the writer takes: blue, green, red, unused

// Pictures that may wait for the encoder, in bytes: half a second of 1920 x 1080 at 30 a second.
// The writer itself knows no bound when it must not make its caller wait.
constexpr std::uint32_t kMaxWaitingBytes = 128 * 1024 * 1024;

// An encoder keeps some for itself before the first one is out.
constexpr std::uint32_t kMinWaitingPictures = 8;

// A picture that is lost is no reason to end a recording; a writer that takes none for so long does
// not recover, as on a full disk.
constexpr std::chrono::seconds kLongestFailure{1};

// The platform counts time in units of 100 nanoseconds.
using Ticks = std::chrono::duration<LONGLONG, std::ratio<1, 10'000'000>>;

constexpr UINT64 packed(UINT32 upper, UINT32 lower)
{
    return UINT64{upper} << 32 | lower;
}

} // namespace

// One recording, from a writer that was made to its last picture. Destruction releases the writer,
// which drops what was not finalised, and then the platform. A file without a picture plays nowhere
// and goes.
class Mp4Recorder::Recording
{
public:
    Recording(const Platform& platform, std::filesystem::path path, UINT32 width, UINT32 height,
              UINT32 fps);
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    enum class Container
    {
        Fragmented, // plays up to its last fragment whatever happens to the program
        Plain,      // worth nothing without the index at its end
    };

    // Makes the writer and, with it, the file.
    [[nodiscard]] bool createWriter(Container container);
    // Tells the writer what it writes and what it gets, and starts the clock.
    [[nodiscard]] bool begin();
    void add(const std::uint8_t* pixels);
    // Whether the file was written to its end.
    [[nodiscard]] bool finish()
    {
        return (!m_hasPicture || SUCCEEDED(m_writer->Finalize())) && !m_failed;
    }
    // The writer took no picture for too long.
    [[nodiscard]] bool failed() const { return m_failed; }
    [[nodiscard]] std::uint64_t dropped() const { return m_dropped; }

private:
    [[nodiscard]] ComPtr<IMFMediaType> makeType(const GUID& subtype) const;
    [[nodiscard]] ComPtr<IMFMediaType> makeOutputType() const;
    [[nodiscard]] ComPtr<IMFMediaType> makeInputType() const;
    [[nodiscard]] ComPtr<IMFMediaBuffer> makeBuffer(const std::uint8_t* pixels) const;
    [[nodiscard]] bool isBehind() const;

    const Platform& m_platform;
    const std::filesystem::path m_path;
    std::optional<MediaPlatform> m_media{std::in_place};
    ComPtr<IMFSinkWriter> m_writer;
    DWORD m_streamIndex = 0;
    const UINT32 m_width;
    const UINT32 m_height;
    const UINT32 m_fps;
    const LONGLONG m_frameDuration;
    Clock::time_point m_start;
    bool m_hasPicture = false; // in the writer
    std::uint64_t m_dropped = 0;
    std::optional<Clock::time_point> m_failing; // since when no picture was taken
    bool m_failed = false;
};

Mp4Recorder::Recording::Recording(const Platform& platform, std::filesystem::path path,
                                  UINT32 width, UINT32 height, UINT32 fps)
    : m_platform(platform)
    , m_path(std::move(path))
    , m_width(width)
    , m_height(height)
    , m_fps(fps)
    , m_frameDuration(Ticks::period::den / fps)
{}

Mp4Recorder::Recording::~Recording()
{
    const bool isFileEmpty = m_writer != nullptr && !m_hasPicture;
    m_writer.Reset();
    m_media.reset();
    if (isFileEmpty) {
        DeleteFileW(m_path.c_str());
    }
}

bool Mp4Recorder::Recording::createWriter(Container container)
{
    // Without the platform the calls below fail by themselves.
    static_cast<void>(m_media->start(MFSTARTUP_FULL));
    ComPtr<IMFAttributes> attributes;
    if (FAILED(mediaFunctions().createAttributes(&attributes, 2))) {
        return false;
    }
    // A live source must never wait for the encoder.
    attributes->SetUINT32(MF_SINK_WRITER_DISABLE_THROTTLING, 1);
    if (container == Container::Fragmented) {
        attributes->SetGUID(MF_TRANSCODE_CONTAINERTYPE, MFTranscodeContainerType_FMPEG4);
    }
    return SUCCEEDED(
               m_platform.createSinkWriter(m_path.c_str(), nullptr, attributes.Get(), &m_writer)) &&
           m_writer != nullptr;
}

bool Mp4Recorder::Recording::begin()
{
    const ComPtr<IMFMediaType> output = makeOutputType();
    const ComPtr<IMFMediaType> input = makeInputType();
    if (output == nullptr || input == nullptr ||
        FAILED(m_writer->AddStream(output.Get(), &m_streamIndex)) ||
        FAILED(m_writer->SetInputMediaType(m_streamIndex, input.Get(), nullptr)) ||
        FAILED(m_writer->BeginWriting())) {
        return false;
    }
    m_start = m_platform.now();
    return true;
}

ComPtr<IMFMediaType> Mp4Recorder::Recording::makeType(const GUID& subtype) const
{
    ComPtr<IMFMediaType> type;
    if (FAILED(mediaFunctions().createMediaType(&type))) {
        return nullptr;
    }
    type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
    type->SetGUID(MF_MT_SUBTYPE, subtype);
    type->SetUINT32(MF_MT_INTERLACE_MODE, MFVideoInterlace_Progressive);
    type->SetUINT64(MF_MT_FRAME_SIZE, packed(m_width, m_height));
    type->SetUINT64(MF_MT_FRAME_RATE, packed(m_fps, 1));
    type->SetUINT64(MF_MT_PIXEL_ASPECT_RATIO, packed(1, 1));
    return type;
}

ComPtr<IMFMediaType> Mp4Recorder::Recording::makeOutputType() const
{
    ComPtr<IMFMediaType> type = makeType(MFVideoFormat_H264);
    if (type != nullptr) {
        type->SetUINT32(MF_MT_AVG_BITRATE, kBitsPerSecond);
        type->SetUINT32(MF_MT_MPEG2_PROFILE, eAVEncH264VProfile_Main);
    }
    return type;
}

ComPtr<IMFMediaType> Mp4Recorder::Recording::makeInputType() const
{
    ComPtr<IMFMediaType> type = makeType(MFVideoFormat_RGB32);
    if (type != nullptr) {
        // Positive: the top row comes first, which is not the default of this format.
        type->SetUINT32(MF_MT_DEFAULT_STRIDE, m_width * kBytesPerPixel);
    }
    return type;
}

ComPtr<IMFMediaBuffer> Mp4Recorder::Recording::makeBuffer(const std::uint8_t* pixels) const
{
    const DWORD size = m_width * m_height * kBytesPerPixel; // 2^28 at most
    ComPtr<IMFMediaBuffer> buffer;
    if (FAILED(mediaFunctions().createMemoryBuffer(size, &buffer))) {
        return nullptr;
    }
    {
        const LockedBuffer locked(buffer.Get());
        if (locked.bytes().size() < size) {
            return nullptr;
        }
        std::uint8_t* out = locked.bytes().data();
        for (const std::uint8_t* const end = out + size; out != end; out += kBytesPerPixel) {
            out[0] = pixels[0];
            out[1] = pixels[1];
            out[2] = pixels[2];
            out[3] = 255;
            pixels += 3;
        }
    }
    buffer->SetCurrentLength(size);
    return buffer;
}

// Whether the encoder has not kept up. A writer that does not tell counts as one that has. Bytes
// may be counted on either side of the encoder, pictures are counted on both.
bool Mp4Recorder::Recording::isBehind() const
{
    MF_SINK_WRITER_STATISTICS statistics{};
    statistics.cb = sizeof statistics;
    if (FAILED(m_writer->GetStatistics(m_streamIndex, &statistics))) {
        return false;
    }
    const std::uint64_t most =
        std::max(kMaxWaitingBytes / (m_width * m_height * kBytesPerPixel), kMinWaitingPictures);
    return statistics.dwByteCountQueued > kMaxWaitingBytes ||
           (statistics.qwNumSamplesEncoded > 0 &&
            statistics.qwNumSamplesReceived > statistics.qwNumSamplesEncoded + most);
}

void Mp4Recorder::Recording::add(const std::uint8_t* pixels)
{
    if (isBehind()) {
        ++m_dropped;
        return;
    }
    const auto time = std::chrono::duration_cast<Ticks>(m_platform.now() - m_start);
    const ComPtr<IMFMediaBuffer> buffer = makeBuffer(pixels);
    ComPtr<IMFSample> sample;
    if (buffer == nullptr || FAILED(mediaFunctions().createSample(&sample))) {
        return;
    }
    sample->AddBuffer(buffer.Get());
    sample->SetSampleTime(time.count());
    sample->SetSampleDuration(m_frameDuration);
    if (SUCCEEDED(m_writer->WriteSample(m_streamIndex, sample.Get()))) {
        m_hasPicture = true;
        m_failing.reset();
        return;
    }
    const auto now = m_platform.now();
    m_failing = m_failing.value_or(now);
    m_failed = now - *m_failing >= kLongestFailure;
}

Mp4Recorder::Mp4Recorder()
    : Mp4Recorder(Platform{})
{}

Mp4Recorder::Mp4Recorder(const Platform& platform)
    : m_platform(std::make_unique<const Platform>(platform))
{}

Mp4Recorder::~Mp4Recorder()
{
    close();
}

bool Mp4Recorder::open(const std::filesystem::path& path, std::uint32_t width, std::uint32_t height,
                       int fps)
{
    if (isOpen() || !accepts(width, height)) {
        return false;
    }
    close(); // a recording that has ended by itself
    for (const auto container : {Recording::Container::Fragmented, Recording::Container::Plain}) {
        auto recording = std::make_unique<Recording>(
            *m_platform, path, width, height, static_cast<UINT32>(fps > 0 ? fps : kDefaultFps));
        if (recording->createWriter(container) && recording->begin()) {
            m_recording = std::move(recording);
            m_width = width;
            m_height = height;
            return true;
        }
    }
    return false;
}

void Mp4Recorder::writeFrame(const std::uint8_t* pixels)
{
    if (pixels != nullptr && isOpen()) {
        m_recording->add(pixels);
    }
}

bool Mp4Recorder::close()
{
    if (m_recording == nullptr) {
        return true;
    }
    const bool complete = m_recording->finish();
    m_droppedBefore = m_recording->dropped();
    m_recording.reset();
    return complete;
}

bool Mp4Recorder::isOpen() const
{
    return m_recording != nullptr && !m_recording->failed();
}

std::uint64_t Mp4Recorder::droppedPictures() const
{
    return m_recording != nullptr ? m_recording->dropped() : m_droppedBefore;
}

} // namespace pevrix
