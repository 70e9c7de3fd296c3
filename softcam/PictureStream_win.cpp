#include "softcam/PictureStream_win.h"

#include "softcam/CameraReader_win.h"
#include "softcam/PictureSchedule.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <mutex>
#include <new>
#include <process.h>
#include <utility>

namespace pevrix {
namespace {

using Microsoft::WRL::ComPtr;
using HundredNanoseconds = std::chrono::duration<REFERENCE_TIME, std::ratio<1, 10'000'000>>;

// False when the first was set, or when the wait failed: waiting for the rest would never end then.
template <std::size_t kCount>
bool waitForOthers(const std::array<HANDLE, kCount>& handles)
{
    const DWORD which = WaitForMultipleObjects(kCount, handles.data(), FALSE, INFINITE);
    return which > WAIT_OBJECT_0 && which < WAIT_OBJECT_0 + kCount;
}

// A thread's stay in the apartment of all threads that have none of their own; what is downstream
// may need one.
class ThreadApartment
{
public:
    ThreadApartment()
        : m_result(CoInitializeEx(nullptr, COINIT_MULTITHREADED))
    {}
    ~ThreadApartment()
    {
        if (SUCCEEDED(m_result)) {
            CoUninitialize();
        }
    }
    ThreadApartment(const ThreadApartment&) = delete;
    ThreadApartment& operator=(const ThreadApartment&) = delete;

private:
    const HRESULT m_result;
};

} // namespace

std::unique_ptr<PictureStream> PictureStream::start(Target target)
{
    std::unique_ptr<PictureStream> stream(new (std::nothrow) PictureStream(std::move(target)));
    if (!stream || !stream->m_stop || !stream->m_changed || stream->m_timer.handle() == nullptr) {
        return nullptr;
    }
    const std::uintptr_t thread =
        _beginthreadex(nullptr, 0, &PictureStream::threadMain, stream.get(), 0, nullptr);
    stream->m_thread.reset(reinterpret_cast<HANDLE>(thread));
    return stream->m_thread ? std::move(stream) : nullptr;
}

PictureStream::PictureStream(Target target)
    : m_target(std::move(target))
    , m_stop(CreateEventW(nullptr, TRUE, FALSE, nullptr))
    , m_changed(CreateEventW(nullptr, FALSE, FALSE, nullptr))
    , m_format(m_target.format)
    , m_rowWidth(m_format.picture.width)
{}

PictureStream::~PictureStream()
{
    if (m_thread) {
        SetEvent(m_stop.get());
        WaitForSingleObject(m_thread.get(), INFINITE);
    }
}

void PictureStream::run(ComPtr<IReferenceClock> clock, REFERENCE_TIME start)
{
    const std::lock_guard lock(m_lock);
    m_clock.Swap(clock);
    m_start = start;
    if (!std::exchange(m_ranBefore, true)) {
        m_firstRun = Clock::now();
    }
    m_running = true;
    SetEvent(m_changed.get());
}

void PictureStream::pause()
{
    const std::lock_guard lock(m_lock);
    m_running = false; // the clock stays: a picture may be on its way
    SetEvent(m_changed.get());
}

unsigned __stdcall PictureStream::threadMain(void* self)
{
    static_cast<PictureStream*>(self)->work();
    return 0;
}

void PictureStream::work()
{
    const ThreadApartment apartment;
    try {
        serveReader();
    } catch (const std::exception&) { // no memory for pictures: the reader gets none
    }
}

void PictureStream::serveReader()
{
    CameraReader reader(m_format, Clock::now());
    PictureSchedule schedule(m_format.picture);
    for (bool goesOn = true; goesOn;) {
        if (!isRunning()) {
            goesOn = waitForRun();
            continue;
        }
        const auto now = Clock::now();
        if (reader.look(now)) {
            schedule.pictureCame();
        }
        if (schedule.isDue(now)) {
            const auto picture = reader.picture(now);
            if (!picture.empty() && !handOn(picture)) {
                return;
            }
            schedule.handedOn(now);
        }
        goesOn = waitUntil(schedule.deadline(), reader);
    }
}

bool PictureStream::isRunning()
{
    const std::lock_guard lock(m_lock);
    return m_running;
}

bool PictureStream::waitForRun()
{
    m_discontinuity = true;
    return waitForOthers(std::array{m_stop.get(), m_changed.get()});
}

bool PictureStream::waitUntil(Clock::time_point time, const CameraReader& reader)
{
    m_timer.set(time);
    return waitForOthers(
        std::array{m_stop.get(), m_changed.get(), reader.pictureCame(), m_timer.handle()});
}

bool PictureStream::handOn(std::span<const std::uint8_t> picture)
{
    ComPtr<IMediaSample> sample;
    return SUCCEEDED(m_target.allocator->GetBuffer(&sample, nullptr, nullptr, 0)) && sample &&
           fill(*sample.Get(), picture) && m_target.input->Receive(sample.Get()) == S_OK;
}

bool PictureStream::fill(IMediaSample& sample, std::span<const std::uint8_t> picture)
{
    if (!takeType(sample) || !copy(sample, picture)) {
        return false;
    }
    REFERENCE_TIME start = std::max(streamTime(), m_lastStamp + 1);
    REFERENCE_TIME end = start + m_format.interval();
    m_lastStamp = start;
    sample.SetTime(&start, &end);
    sample.SetMediaTime(nullptr, nullptr);
    sample.SetSyncPoint(TRUE);
    sample.SetPreroll(FALSE);
    sample.SetDiscontinuity(std::exchange(m_discontinuity, false) ? TRUE : FALSE);
    return true;
}

// A renderer tells the rows of its memory by a type on the first sample that has such rows.
bool PictureStream::takeType(IMediaSample& sample)
{
    AM_MEDIA_TYPE* type = nullptr;
    if (sample.GetMediaType(&type) != S_OK) {
        return true;
    }
    const auto width = rowWidthOf(*type, m_format);
    MediaType::free(type);
    m_rowWidth = width.value_or(m_rowWidth);
    return width.has_value();
}

bool PictureStream::copy(IMediaSample& sample, std::span<const std::uint8_t> picture) const
{
    CameraFormat memory = m_format.picture;
    memory.width = m_rowWidth;
    const std::size_t size = pictureSize(m_format.layout, memory);
    BYTE* bytes = nullptr;
    if (FAILED(sample.GetPointer(&bytes)) || bytes == nullptr || sample.GetSize() < 0 ||
        static_cast<std::size_t>(sample.GetSize()) < size) {
        return false;
    }
    if (size == picture.size()) {
        std::memcpy(bytes, picture.data(), size);
    } else {
        copyToWiderRows(m_format.layout, m_format.picture, m_rowWidth, picture.data(), bytes);
    }
    sample.SetActualDataLength(static_cast<long>(size));
    return true;
}

REFERENCE_TIME PictureStream::streamTime()
{
    const std::lock_guard lock(m_lock);
    REFERENCE_TIME now = 0;
    if (m_clock && SUCCEEDED(m_clock->GetTime(&now))) {
        return std::max<REFERENCE_TIME>(now - m_start, 0);
    }
    return std::chrono::duration_cast<HundredNanoseconds>(Clock::now() - m_firstRun).count();
}

} // namespace pevrix
