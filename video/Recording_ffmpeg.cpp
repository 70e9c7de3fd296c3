#include "video/Recording_ffmpeg.h"

#include "video/Mp4Writer_ffmpeg.h"
#include "video/PictureQueue.h"

#include <libyuv.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace pevrix {

namespace {

// Pictures that may wait for the encoder: a quarter of a second at 30 pictures per second, long
// enough for the keyframes, which take longer than other pictures, and for a busy disk.
constexpr std::size_t kMaxWaitingPictures = 8;
// Fewer when they are large; 4096 x 2160 still gets all of them.
constexpr std::size_t kMaxWaitingBytes = std::size_t{128} * 1024 * 1024;

constexpr int roundedUpToEven(int size)
{
    return size + size % 2;
}

constexpr std::size_t waitingLimit(int width, int height)
{
    const std::size_t bytes =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3 / 2;
    return std::clamp<std::size_t>(kMaxWaitingBytes / std::max<std::size_t>(bytes, 1), 1,
                                   kMaxWaitingPictures);
}

// Makes sure that the frame has memory of its own. An encoder may still hold what it was given.
bool prepare(FrameHandle& frame, int width, int height)
{
    if (frame == nullptr) {
        frame.reset(av_frame_alloc());
    }
    if (frame == nullptr || (frame->buf[0] != nullptr && av_frame_is_writable(frame.get()) > 0)) {
        return frame != nullptr;
    }
    av_frame_unref(frame.get());
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = width;
    frame->height = height;
    return av_frame_get_buffer(frame.get(), 0) >= 0;
}

// Two rows of pixels as libyuv likes them best. Its direct way from 3-byte pixels goes through such
// rows as well, but allocates them for every picture.
class RowPair
{
public:
    explicit RowPair(int width)
        : m_stride(width * 4)
        , m_pixels(static_cast<std::size_t>(m_stride) * 2)
    {}

    // Converts `rows` rows, 1 or 2, to those of the frame that start at `y`, an even number.
    void convert(const std::uint8_t* bgr, int width, int rows, AVFrame& frame, int y)
    {
        std::uint8_t* pixels = m_pixels.data();
        // "RGB24" is blue, green, red in memory, and "ARGB" blue, green, red, alpha.
        libyuv::RGB24ToARGB(bgr, width * 3, pixels, m_stride, width, rows);
        libyuv::ARGBToI420(pixels, m_stride, rowOf(frame, 0, y), frame.linesize[0],
                           rowOf(frame, 1, y / 2), frame.linesize[1], rowOf(frame, 2, y / 2),
                           frame.linesize[2], width, rows);
    }

    static std::uint8_t* rowOf(const AVFrame& frame, std::size_t plane, int y)
    {
        return frame.data[plane] + std::ptrdiff_t{y} * frame.linesize[plane];
    }

private:
    const int m_stride;
    std::vector<std::uint8_t> m_pixels;
};

// Fills a frame whose size is that of the picture, rounded up to even numbers: 4:2:0 has no odd
// sizes. The added column or row repeats its neighbour.
void fill(AVFrame& frame, const std::uint8_t* bgr, int width, int height, RowPair& rowPair)
{
    for (int y = 0; y < height; y += 2) {
        const std::ptrdiff_t offset = std::ptrdiff_t{y} * width * 3;
        rowPair.convert(bgr + offset, width, std::min(height - y, 2), frame, y);
    }
    for (int y = 0; y < height && width < frame.width; ++y) {
        std::uint8_t* luma = RowPair::rowOf(frame, 0, y);
        luma[width] = luma[width - 1];
    }
    if (height < frame.height) {
        std::memcpy(RowPair::rowOf(frame, 0, height), RowPair::rowOf(frame, 0, height - 1),
                    static_cast<std::size_t>(frame.width));
    }
}

// A recording with its thread: the caller's thread converts pictures into the queue, the
// recording's own encodes and writes them until there are no more or writing fails.
class Recording final : public IRecording
{
public:
    Recording(std::unique_ptr<Mp4Writer> writer, int width, int height, int fps,
              Clock::time_point start)
        : m_writer(std::move(writer))
        , m_width(width)
        , m_height(height)
        , m_frameDuration(Mp4Writer::kTimeBase.den / fps)
        , m_start(start)
        , m_rowPair(width)
        , m_queue(waitingLimit(width, height))
        , m_thread([this] { writePictures(); })
    {}

    ~Recording() override { Recording::finish(); }

    void add(const std::uint8_t* pixels, Clock::time_point now) override;
    bool finish() override;
    [[nodiscard]] bool failed() const override { return m_failed; }
    [[nodiscard]] std::uint64_t droppedPictures() const override { return m_queue.dropped(); }

private:
    void writePictures();

    const std::unique_ptr<Mp4Writer> m_writer;
    const int m_width;
    const int m_height;
    const std::int64_t m_frameDuration; // in units of Mp4Writer::kTimeBase, as m_lastTime
    const Clock::time_point m_start;
    std::int64_t m_lastTime = -1;
    RowPair m_rowPair;
    PictureQueue<FrameHandle> m_queue;
    std::atomic<bool> m_failed = false;
    std::thread m_thread; // last, for it uses the others
};

void Recording::add(const std::uint8_t* pixels, Clock::time_point now)
{
    FrameHandle frame = m_queue.take();
    if (!prepare(frame, roundedUpToEven(m_width), roundedUpToEven(m_height))) {
        return; // no memory: this picture is left out
    }
    fill(*frame, pixels, m_width, m_height, m_rowPair);
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, Mp4Writer::kTimeBase.den>>;
    const auto time = std::chrono::duration_cast<Ticks>(now - m_start).count();
    m_lastTime = std::max(time, m_lastTime + 1); // no two pictures may have the same
    frame->pts = m_lastTime;
    frame->duration = m_frameDuration;
    m_queue.push(std::move(frame));
}

bool Recording::finish()
{
    m_queue.close();
    if (m_thread.joinable()) {
        m_thread.join();
    }
    return !m_failed;
}

void Recording::writePictures()
{
    FrameHandle frame;
    while (m_queue.exchange(frame)) {
        if (!m_writer->encode(*frame)) {
            m_failed = true;
            return;
        }
    }
    m_failed = !m_writer->finish();
}

} // namespace

std::unique_ptr<IRecording> openRecording(const IRecording::Description& description)
{
    const auto& [path, width, height, fps, encoders, start] = description;
    auto writer =
        Mp4Writer::create(path, roundedUpToEven(width), roundedUpToEven(height), fps, encoders);
    if (writer == nullptr) {
        return nullptr;
    }
    try {
        return std::make_unique<Recording>(std::move(writer), width, height, fps, start);
    } catch (const std::exception&) { // no thread, no memory
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        return nullptr;
    }
}

} // namespace pevrix
