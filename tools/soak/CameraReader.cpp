#include "tools/soak/CameraReader.h"

#include <array>
#include <cmath>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kPictureBytes = std::size_t{160} * 90 * 2;
constexpr auto kWatchInterval = 10ms;
constexpr auto kHeldUp = 30ms; // later than this, the machine was too busy to judge anybody
constexpr auto kVisitInterval = 600ms;

// The child keeps the writing end. Ours stays out of other children.
QString pictureCommand(int& ourEnd)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return {};
    }
    ourEnd = ends[0];
    return u"-v pipewiresrc target-object=pevrix-camera ! "
           "video/x-raw,format=YUY2,width=160,height=90 ! "
           "identity silent=false ! fdsink sync=false fd=%1"_s.arg(ends[1]);
}

} // namespace

CameraReader::CameraReader()
    : m_program(u"gst-launch-1.0"_s, pictureCommand(m_pipe).split(u' '))
    , m_reading([this](const std::stop_token& stop) { readPictures(stop); })
    , m_watching([this](const std::stop_token& stop) { watch(stop); })
{
    m_program.waitForStarted();
    ::close(m_program.arguments().constLast().mid(3).toInt());
    QObject::connect(&m_program, &QProcess::readyReadStandardOutput, &m_program,
                     [this] { readStamps(); });
}

CameraReader::~CameraReader()
{
    m_program.end(); // the pipe ends, and with it the reading
    m_reading.join();
    ::close(m_pipe);
}

CameraReader::Seen CameraReader::seen() const
{
    const std::lock_guard lock(m_mutex);
    return m_seen;
}

void CameraReader::readPictures(const std::stop_token& stop)
{
    std::vector<char> picture(kPictureBytes);
    std::vector<char> before;
    while (!stop.stop_requested()) {
        for (std::size_t have = 0; have < kPictureBytes;) {
            const ssize_t count = ::read(m_pipe, picture.data() + have, kPictureBytes - have);
            if (count <= 0) {
                return;
            }
            have += static_cast<std::size_t>(count);
        }
        const auto now = std::chrono::steady_clock::now();
        const std::lock_guard lock(m_mutex);
        if (m_seen.pictures++ > 0) {
            noteGap(now - m_seen.lastPicture);
        }
        m_seen.lastPicture = now;
        if (picture != before) {
            ++m_seen.changes;
            m_seen.lastChange = now;
            before = picture;
        }
    }
}

void CameraReader::noteGap(Point::duration gap)
{
    ++m_gaps.pictures;
    if (gap > kLongestGap) {
        const Point heldUp{Point::duration(m_heldUp)};
        ++m_gaps.tooLong;
        m_gaps.excused += heldUp > m_seen.lastPicture - 50ms ? 1 : 0;
    }
    m_gaps.worstMs =
        std::max(m_gaps.worstMs, std::chrono::duration<double, std::milli>(gap).count());
}

CameraReader::Gaps CameraReader::takeGaps()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_gaps, {});
}

void CameraReader::watch(const std::stop_token& stop)
{
    while (!stop.stop_requested()) {
        const auto before = std::chrono::steady_clock::now();
        std::this_thread::sleep_for(kWatchInterval);
        const auto now = std::chrono::steady_clock::now();
        if (now - before > kWatchInterval + kHeldUp) {
            m_heldUp = now.time_since_epoch().count();
        }
    }
}

// A line says "... pts: 0:00:01.234567890, duration ...".
void CameraReader::readStamps()
{
    m_line += m_program.readAllStandardOutput();
    for (qsizetype end = 0; (end = m_line.indexOf('\n')) >= 0; m_line.remove(0, end + 1)) {
        const qsizetype at = m_line.indexOf(" pts: ");
        if (at < 0 || at > end) {
            continue;
        }
        const auto parts = m_line.sliced(at + 6, m_line.indexOf(',', at) - at - 6).split(':');
        if (parts.size() != 3) {
            continue;
        }
        const double stamp = parts[0].toInt() * 3600 + parts[1].toInt() * 60 + parts[2].toDouble();
        m_rising = m_rising && (m_stamps == 0 || stamp > m_lastStamp);
        m_firstStamp = m_stamps++ == 0 ? stamp : m_firstStamp;
        m_lastStamp = stamp;
    }
}

CameraReader::Stamps CameraReader::takeStamps()
{
    readStamps();
    Stamps stamps{.rising = m_rising};
    if (m_stamps > 1 && m_lastStamp > m_firstStamp) {
        stamps.rate = static_cast<double>(m_stamps - 1) / (m_lastStamp - m_firstStamp);
    }
    m_firstStamp = m_lastStamp;
    m_stamps = m_stamps > 0 ? 1 : 0;
    m_rising = true;
    return stamps;
}

Visitors::Visitors()
{
    m_timer.callOnTimeout(&m_timer, [this] { look(); });
    m_timer.start(kVisitInterval);
}

void Visitors::look()
{
    if (m_visitor && m_visitor->state() == QProcess::NotRunning) {
        ++(m_visitor->exitCode() == 0 ? m_served : m_turnedAway);
        m_visitor.reset();
    }
    if (!m_visitor && m_coming) {
        m_visitor = std::make_unique<Program>(
            u"gst-launch-1.0"_s, words("-q pipewiresrc target-object=pevrix-camera num-buffers=3 ! "
                                       "video/x-raw,format=YUY2 ! fakesink sync=false"));
    }
}

} // namespace pevrix
