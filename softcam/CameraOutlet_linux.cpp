#include "softcam/CameraOutlet_linux.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <stdexcept>
#include <utility>

namespace pevrix {

namespace {

using Clock = std::chrono::steady_clock; // CLOCK_MONOTONIC, as the loop's timers

timespec timespecOf(std::chrono::nanoseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {.tv_sec = seconds.count(), .tv_nsec = (time - seconds).count()};
}

pw_loop* loopOf(const pw::ThreadLoop& loop)
{
    if (!loop) {
        throw std::runtime_error("no event loop");
    }
    return pw_thread_loop_get_loop(loop.get());
}

} // namespace

struct CameraOutlet::Callbacks
{
    static CameraOutlet& self(void* data) { return *static_cast<CameraOutlet*>(data); }

    static void cameraChanged(void* data, std::uint64_t) { self(data).followCamera(); }
    static void graceOver(void* data, std::uint64_t) { self(data).endReaders(); }
    static void pictureDue(void* data, std::uint64_t) { self(data).showDuePictures(); }
    static void pictureCame(void* data, std::uint64_t)
    {
        CameraOutlet& outlet = self(data);
        outlet.m_source.schedule().pictureCame();
        if (outlet.m_loopback) {
            outlet.m_loopback->schedule().pictureCame();
        }
        outlet.showDuePictures();
    }
};

CameraOutlet::CameraOutlet(std::chrono::seconds grace)
    : m_grace(grace)
    , m_loop(pw_thread_loop_new("pevrix-camera", nullptr))
    , m_source(loopOf(m_loop), m_mailbox)
{
    pw_loop* loop = loopOf(m_loop);
    m_cameraChanged = pw_loop_add_event(loop, Callbacks::cameraChanged, this);
    m_pictureCame = pw_loop_add_event(loop, Callbacks::pictureCame, this);
    m_pictureTimer = pw_loop_add_timer(loop, Callbacks::pictureDue, this);
    m_graceTimer = pw_loop_add_timer(loop, Callbacks::graceOver, this);
    if (m_cameraChanged == nullptr || m_pictureCame == nullptr || m_pictureTimer == nullptr ||
        m_graceTimer == nullptr) {
        throw std::runtime_error("no event sources");
    }
    if (pw_thread_loop_start(m_loop.get()) < 0) {
        throw std::runtime_error("no thread");
    }
}

CameraOutlet::~CameraOutlet()
{
    pw_thread_loop_stop(m_loop.get());
}

void CameraOutlet::open(const CameraFormat& format)
{
    setCamera(format);
}

void CameraOutlet::close()
{
    setCamera(std::nullopt);
}

void CameraOutlet::setCamera(std::optional<CameraFormat> format)
{
    const std::lock_guard lock(m_mutex);
    m_camera = format;
    pw_loop_signal_event(loopOf(m_loop), m_cameraChanged);
}

void CameraOutlet::sendFrame(const BgrPicture& picture)
{
    if (m_source.isStreaming() || m_feedsLoopback) {
        m_mailbox.put(picture);
        pw_loop_signal_event(loopOf(m_loop), m_pictureCame);
    }
}

void CameraOutlet::followCamera()
{
    const auto camera = [this] {
        const std::lock_guard lock(m_mutex);
        return m_camera;
    }();
    timespec grace = timespecOf(camera ? std::chrono::seconds(0) : m_grace); // zero: never
    pw_loop_update_timer(loopOf(m_loop), m_graceTimer, &grace, nullptr, false);
    if (camera) {
        m_source.offer(*camera);
        if (!m_loopback) {
            m_loopback = V4l2Output::openFirstFree(*camera);
            m_feedsLoopback = m_loopback.has_value();
        }
    }
}

void CameraOutlet::endReaders()
{
    m_source.withdraw();
    m_feedsLoopback = false;
    m_loopback.reset();
    m_mailbox.clear();
}

void CameraOutlet::showDuePictures()
{
    const Clock::time_point now = Clock::now();
    m_source.showIfDue(now);
    if (m_loopback && m_loopback->schedule().isDue(now)) {
        if (const BgrPicture picture = m_mailbox.newest(); picture.pixels != nullptr) {
            m_loopback->show(picture);
        }
        m_loopback->schedule().handedOn(now);
    }
    armPictureTimer();
}

// For the picture that waits, or for the last one if no other comes.
void CameraOutlet::armPictureTimer()
{
    auto next = Clock::time_point::max();
    if (m_source.isStreaming()) {
        next = m_source.schedule().deadline();
    }
    if (m_loopback) {
        next = std::min(next, m_loopback->schedule().deadline());
    }
    if (next != Clock::time_point::max()) {
        timespec time = timespecOf(next.time_since_epoch());
        pw_loop_update_timer(loopOf(m_loop), m_pictureTimer, &time, nullptr, true);
    }
}

} // namespace pevrix
