#include "tools/camreader/Witness_win.h"

#include "tools/camreader/ThisProcess_win.h"

#include <cstring>
#include <utility>

namespace pevrix {

namespace {

constexpr const wchar_t* kEventName = L"Local\\PevrixCamreaderWitness";
constexpr const wchar_t* kSectionName = L"Local\\PevrixCamreaderWitnessTime";
constexpr DWORD kRetryMilliseconds = 200;
constexpr std::size_t kPictureSize = std::size_t{3} * 1280 * 720;

volatile std::int64_t* mapTime(HANDLE section, DWORD access)
{
    return static_cast<volatile std::int64_t*>(
        MapViewOfFile(section, access, 0, 0, sizeof(std::int64_t)));
}

} // namespace

WitnessSender::WitnessSender()
    : m_event(CreateEventW(nullptr, FALSE, FALSE, kEventName))
    , m_section(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                   sizeof(std::int64_t), kSectionName))
{
    if (m_section) {
        m_time = mapTime(m_section.get(), FILE_MAP_WRITE);
    }
}

WitnessSender::~WitnessSender()
{
    if (m_time) {
        UnmapViewOfFile(const_cast<std::int64_t*>(m_time));
    }
}

void WitnessSender::signal()
{
    if (m_time && m_event) {
        *m_time = sharedMicroseconds();
        SetEvent(m_event.get());
    }
}

WitnessReader::WitnessReader()
    : m_stop(CreateEventW(nullptr, TRUE, FALSE, nullptr))
    , m_thread(&WitnessReader::run, this)
{}

WitnessReader::~WitnessReader()
{
    SetEvent(m_stop.get());
    m_thread.join();
}

void WitnessReader::run()
{
    UniqueHandle event;
    UniqueHandle section;
    while (!event || !section) { // until there is a sender
        event.reset(OpenEventW(SYNCHRONIZE, FALSE, kEventName));
        section.reset(OpenFileMappingW(FILE_MAP_READ, FALSE, kSectionName));
        if ((!event || !section) &&
            WaitForSingleObject(m_stop.get(), kRetryMilliseconds) == WAIT_OBJECT_0) {
            return;
        }
    }
    const volatile std::int64_t* time = mapTime(section.get(), FILE_MAP_READ);
    if (!time) {
        return;
    }
    const std::vector<std::uint8_t> from(kPictureSize, 1);
    std::vector<std::uint8_t> to(kPictureSize);
    const HANDLE handles[] = {m_stop.get(), event.get()};
    while (WaitForMultipleObjects(2, handles, FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        const std::int64_t signalled = *time;
        std::memcpy(to.data(), from.data(), kPictureSize);
        const std::int64_t delay = sharedMicroseconds() - signalled;
        const std::lock_guard lock(m_mutex);
        m_delays.push_back(delay);
    }
    UnmapViewOfFile(const_cast<std::int64_t*>(time));
}

std::vector<std::int64_t> WitnessReader::takeDelays()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_delays, {});
}

} // namespace pevrix
