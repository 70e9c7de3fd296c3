#include "tools/camreader/Watcher.h"

#include <algorithm>
#include <utility>

namespace pevrix {

namespace {

// Comparing colours costs more than reading the label.
constexpr int kComparedEvery = 5;

constexpr std::int64_t kMicroseconds = 1'000'000;

// From the stamp, which starts anew every 168 seconds, to now.
std::int64_t latencyOf(std::uint32_t stamp, std::int64_t time)
{
    const auto now = static_cast<std::uint32_t>(time / (kMicroseconds / kStampUnitsPerSecond));
    return ((now - stamp) & kLabelMask) * (kMicroseconds / kStampUnitsPerSecond);
}

// Tells pictures apart by a few hundred of their points, for something that moves is larger than
// the gaps between them.
std::uint64_t contentOf(const Picture& picture)
{
    constexpr int kColumns = 32;
    constexpr int kRows = 18;
    std::uint64_t hash = 0;
    for (int index = 0; index < kColumns * kRows; ++index) {
        const Rgb pixel = picture.pixel(picture.width() * (index % kColumns) / kColumns,
                                        picture.height() * (index / kColumns) / kRows);
        hash =
            (hash ^ static_cast<std::uint64_t>(pixel.red << 16 | pixel.green << 8 | pixel.blue)) *
            0x100'0000'01B3U;
    }
    return hash;
}

} // namespace

void Watcher::take(const Picture& picture, std::int64_t time,
                   std::optional<std::int64_t> presentation)
{
    const Reading reading = readPicture(picture);
    const std::lock_guard lock(m_mutex);
    ++m_interval.pictures;
    if (m_time != 0) {
        m_interval.longestGap = std::max(m_interval.longestGap, time - m_time);
    }
    m_time = time;
    const std::uint64_t content = contentOf(picture);
    m_interval.changed += content != m_content ? 1 : 0;
    m_content = content;
    if (presentation) {
        m_interval.timeBackward += m_presentation && *presentation <= *m_presentation ? 1 : 0;
        m_presentation = presentation;
    }
    count(reading);
    if (reading.kind == PictureKind::Live) {
        takeLive(picture, reading, time);
    }
    noteChange(reading, time);
    m_interval.probes.clear();
    for (const Area& probe : m_probes) {
        m_interval.probes.push_back(
            meanColour(picture, {probe.left * picture.width() / 1000,
                                 probe.top * picture.height() / 1000, probe.width, probe.height}));
    }
}

void Watcher::count(const Reading& reading)
{
    switch (reading.kind) {
    case PictureKind::Live:
        ++m_interval.live;
        return;
    case PictureKind::Torn:
        ++m_interval.torn;
        return;
    case PictureKind::Other:
        ++m_interval.other;
        return;
    case PictureKind::None:
        return;
    }
}

void Watcher::takeLive(const Picture& picture, const Reading& reading, std::int64_t time)
{
    const std::uint32_t number = reading.label.number;
    const auto step = static_cast<std::int32_t>(number - m_number.value_or(number - 1));
    if (step == 0) {
        ++m_interval.repeated;
    } else {
        // A picture that is repeated is as old as it is.
        m_interval.latencies.push_back(latencyOf(reading.label.stamp, time));
        m_interval.backward += step < 0 ? 1 : 0;
        m_interval.skipped += std::max(0, step - 1);
    }
    m_number = number;
    if (++m_sinceCompared >= kComparedEvery || m_last.kind != PictureKind::Live) {
        m_sinceCompared = 0;
        const Differences differences = compare(picture, reading);
        Differences& worst = m_interval.worst;
        worst = {std::max(worst.colours, differences.colours),
                 std::max(worst.bars, differences.bars), std::max(worst.box, differences.box)};
    }
}

void Watcher::noteChange(const Reading& reading, std::int64_t time)
{
    const WatchedChange change{time, reading.kind, reading.label.width, reading.label.height};
    if (change.kind != m_last.kind ||
        (change.kind == PictureKind::Live &&
         (change.width != m_last.width || change.height != m_last.height))) {
        m_changes.push_back(change);
    }
    m_last = change;
}

void Watcher::restart()
{
    const std::lock_guard lock(m_mutex);
    m_interval = {};
    m_number.reset();
    m_presentation.reset();
    m_time = 0;
}

WatchedInterval Watcher::takeInterval()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_interval, {});
}

std::vector<WatchedChange> Watcher::takeChanges()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_changes, {});
}

std::int64_t median(std::vector<std::int64_t> values)
{
    if (values.empty()) {
        return 0;
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace pevrix
