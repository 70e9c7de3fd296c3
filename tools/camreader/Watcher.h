#pragma once

#include "tools/camreader/TestPicture.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace pevrix {

// What came in one interval. Times are microseconds.
struct WatchedInterval
{
    int pictures = 0;
    int changed = 0; // that differ from the one before
    int live = 0;
    int torn = 0;
    int other = 0;
    int repeated = 0;     // shown again
    int skipped = 0;      // sent, never shown
    int backward = 0;     // shown after a later one
    int timeBackward = 0; // presentation times that do not grow
    std::int64_t longestGap = 0;
    Differences worst; // of every live picture that was compared
    std::vector<std::int64_t> latencies;
    std::vector<Rgb> probes; // of the last picture
};

// When the kind of the pictures, or the size of what is sent, changed.
struct WatchedChange
{
    std::int64_t time = 0;
    PictureKind kind = PictureKind::None;
    int width = 0;
    int height = 0;
};

// Looks at every picture that a reader gets. take() is called by the thread that delivers pictures,
// the others by any thread.
class Watcher
{
public:
    // Points at which the mean colour is wanted, as thousandths of the picture's sides.
    explicit Watcher(std::vector<Area> probes = {})
        : m_probes(std::move(probes))
    {}

    // `time` is the arrival; `presentation` the sample's own time, when it has one.
    void take(const Picture& picture, std::int64_t time, std::optional<std::int64_t> presentation);

    // Begins anew: what comes now is of another connection.
    void restart();

    [[nodiscard]] WatchedInterval takeInterval();
    [[nodiscard]] std::vector<WatchedChange> takeChanges();

private:
    void takeLive(const Picture& picture, const Reading& reading, std::int64_t time);
    void count(const Reading& reading);
    void noteChange(const Reading& reading, std::int64_t time);

    std::mutex m_mutex;
    const std::vector<Area> m_probes;
    WatchedInterval m_interval;
    std::vector<WatchedChange> m_changes;
    WatchedChange m_last;
    std::optional<std::uint32_t> m_number;
    std::optional<std::int64_t> m_presentation;
    std::uint64_t m_content = 0;
    std::int64_t m_time = 0;
    int m_sinceCompared = 0;
};

[[nodiscard]] std::int64_t median(std::vector<std::int64_t> values);

} // namespace pevrix
