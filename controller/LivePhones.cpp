#include "controller/LivePhones.h"

#include <utility>

namespace pevrix {

void LivePhones::add(PhoneRoster::Phone phone)
{
    const int id = phone.id;
    if (m_roster.add(std::move(phone))) {
        m_video.askForVideo(id, true);
    }
    if (m_early.id == id) {
        setStream(id, m_early.size, m_early.fps);
    }
}

void LivePhones::remove(int id)
{
    m_streamSizes.remove(id);
    if (!m_roster.remove(id)) {
        return;
    }
    if (m_roster.isEmpty()) {
        m_video.goIdle();
    } else {
        askForStream();
    }
}

void LivePhones::setStream(int id, QSize size, int fps)
{
    if (!m_roster.find(id)) {
        m_early = {.id = id, .size = size, .fps = fps};
        return;
    }
    m_streamSizes.insert(id, size);
    m_video.setFrameRate(fps);
    if (isActive(id)) {
        startStream(size);
    }
}

bool LivePhones::activate(int id)
{
    const int previous = m_roster.activeId();
    if (!m_roster.setActive(id)) {
        return false;
    }
    if (previous >= 0) {
        m_video.askForVideo(previous, false);
    }
    askForStream();
    return true;
}

// What the phone announced about its video earlier is still true.
void LivePhones::askForStream()
{
    const int id = m_roster.activeId();
    m_video.askForVideo(id, true);
    if (const auto size = m_streamSizes.constFind(id); size != m_streamSizes.constEnd()) {
        startStream(*size);
    }
}

void LivePhones::startStream(QSize size)
{
    const PhoneRoster::Phone* phone = m_roster.find(m_roster.activeId());
    m_video.startStream(size, phone && phone->usb);
}

} // namespace pevrix
