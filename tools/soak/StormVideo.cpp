// What happens in a round of the storm.
#include "tools/soak/Storm.h"

#include <QElapsedTimer>

#include <csignal>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr int kBrokenConnections = 150;
constexpr int kBareConnections = 800;
constexpr int kSizeChanges = 16;
constexpr int kSilentPhones = 10;
constexpr int kSlowStrangers = 200;
constexpr int kCrowd = 2000;
constexpr int kFlooders = 120;
constexpr auto kStop = 5s;

constexpr auto kRecordingTime = 2s;
constexpr auto kFloodTime = 2s;
constexpr auto kPlugLimit = 20s;

double msSince(std::chrono::steady_clock::time_point begin,
               std::chrono::steady_clock::time_point end)
{
    return std::chrono::duration<double, std::milli>(end - begin).count();
}

// What it has between two pictures: one on its way to the window takes megabytes for a moment.
double leastMegabytes(const Subject& subject)
{
    double least = subject.resources().megabytes;
    for (const QDeadlineTimer end(1s); !end.hasExpired();) {
        letEventsRunFor(20ms);
        least = std::min(least, subject.resources().megabytes);
    }
    return least;
}

} // namespace

// The recording ends by a click, or because the picture gets another size.
void Storm::streamAndRecord()
{
    letEventsRunFor(1s);
    const auto before = m_subject.recordings().size();
    m_subject.pressRecord();
    if (!m_subject.awaitRecording(before)) {
        ++m_tally.recordings; // which does not play
        return;
    }
    const QString file = m_subject.recordings().constLast();
    letEventsRunFor(kRecordingTime);
    const std::size_t size = static_cast<std::size_t>(m_round) % Clips::kSizes.size();
    if (m_round % 2 == 1 && size != 0) {
        ++m_tally.sizes;
        m_good->resize(Clips::kSizes[size]);
    } else {
        m_subject.pressRecord();
    }
    ++m_tally.recordings;
    std::optional<Playable> playable;
    (void)waitUntil(
        [&] {
            playable = play(file);
            return playable.has_value();
        },
        QDeadlineTimer(10s));
    m_tally.recordingsThatPlay += playable && playable->pictures > 15 ? 1 : 0;
    for (int change = 0; change < kSizeChanges; ++change) {
        ++m_tally.sizes;
        m_good->resize(Clips::kSizes[static_cast<std::size_t>(change) % Clips::kSizes.size()]);
        letEventsRunFor(300ms);
    }
    m_good->resize(Clips::kSizes.front());
    letEventsRunFor(500ms);
}

// From `since` until the last change that was followed by a still picture: a card was put up.
Times Storm::settledChange(Point since, std::chrono::milliseconds quiet)
{
    letEventsRunFor(quiet);
    const auto change = m_reader.seen().lastChange;
    Times times;
    if (change > since) {
        times.ms.push_back(msSince(since, change));
    }
    return times;
}

void Storm::stallAndResume()
{
    auto begin = std::chrono::steady_clock::now();
    m_good->setStalled(true);
    std::ranges::copy(settledChange(begin, 3500ms).ms, std::back_inserter(m_tally.paused.ms));
    begin = std::chrono::steady_clock::now();
    const qint64 changes = m_reader.seen().changes;
    m_good->setStalled(false);
    const bool moves =
        waitUntil([&] { return m_reader.seen().changes > changes; }, QDeadlineTimer(10s));
    m_tally.resumed.ms.push_back(moves ? msSince(begin, std::chrono::steady_clock::now()) : 1e6);
}

void Storm::breakAndFallSilent()
{
    inBackground([this, to = address()] {
        breakConnections(to, m_clips, kBrokenConnections);
        connectOnly(to, kBareConnections);
    });
    m_tally.broken += kBrokenConnections;
    m_tally.bare += kBareConnections;
    const Silence silence =
        inBackground([this, to = address()] { return fallSilent(to, m_clips, kSilentPhones); });
    for (const double ms : silence.dropped.ms) {
        m_tally.silence.dropped.ms.push_back(ms);
    }
    for (const double ms : silence.readmitted.ms) {
        m_tally.silence.readmitted.ms.push_back(ms);
    }
}

void Storm::meetSlowStrangers()
{
    std::atomic<bool> there = false;
    std::atomic<bool> stop = false;
    auto held = std::async(std::launch::async, [&, to = address()] {
        return holdConnections(to, kSlowStrangers, true, there, stop);
    });
    (void)waitUntil([&] { return there.load(); });
    const auto before = m_reader.seen();
    std::unique_ptr<Phone> late;
    m_tally.greetedBesideSlow.ms.push_back(join(late, u"late"_s, Clips::kSizes[3]));
    letEventsRunFor(2s);
    const auto after = m_reader.seen();
    m_tally.slowestVideo =
        std::min(m_tally.slowestVideo, static_cast<double>(after.changes - before.changes) * 1000 /
                                           msSince(before.lastPicture, after.lastPicture));
    stop = true;
    m_tally.mostHeld = std::max(m_tally.mostHeld, resultOf(std::move(held)));
}

void Storm::meetTheCrowd()
{
    const double before = leastMegabytes(m_subject);
    std::atomic<bool> there = false;
    std::atomic<bool> stop = false;
    auto held = std::async(std::launch::async, [&, to = address()] {
        return holdConnections(to, kCrowd, false, there, stop);
    });
    (void)waitUntil([&] { return there.load(); });
    // The first crowd teaches the allocator, too.
    const double growth = leastMegabytes(m_subject) - before;
    m_crowdMegabytes = m_round > 1 ? std::max(m_crowdMegabytes, growth) : 0;
    stop = true;
    m_tally.mostHeld = std::max(m_tally.mostHeld, resultOf(std::move(held)));
    std::unique_ptr<Phone> late;
    m_tally.greetedAfterCrowd.ms.push_back(join(late, u"late"_s, Clips::kSizes[3]));
}

void Storm::bearTheFlood()
{
    std::atomic<bool> stop = false;
    auto flooding =
        std::async(std::launch::async, [&, to = address()] { flood(to, kFlooders, stop); });
    letEventsRunFor(300ms);
    for (const QDeadlineTimer end(kFloodTime); !end.hasExpired();) {
        m_echoes.ms.push_back(echo(*m_second));
        letEventsRunFor(10ms);
    }
    stop = true;
    resultOf(std::move(flooding));
}

// A phone on a cable, 50 that are plugged in and out within a second, and the daemon's end.
void Storm::plugIn()
{
    m_daemonRestarts = false;
    const auto served = [this] {
        return m_cable && m_cable->isAccepted();
    };
    const auto clocked = [&](Times& times) {
        const auto begin = std::chrono::steady_clock::now();
        const bool came = waitUntil(served, QDeadlineTimer(kPlugLimit));
        times.ms.push_back(came ? msSince(begin, std::chrono::steady_clock::now()) : 1e6);
    };
    (void)waitUntil([this] { return !m_daemon.listeners.isEmpty(); }, QDeadlineTimer(kPlugLimit));
    m_daemon.attach(1);
    clocked(m_tally.cable);
    for (int event = 0; event < 50; ++event) {
        const int device = 2 + event / 2 % 12;
        event % 2 == 0 ? m_daemon.attach(device) : m_daemon.detach(device);
        letEventsRunFor(20ms);
    }
    m_daemon.detach(1);
    letEventsRunFor(300ms);
    m_cable.reset();
    m_daemon.attach(1);
    clocked(m_tally.cable);
    m_daemon.vanish();
    letEventsRunFor(200ms);
    m_cable.reset();
    (void)m_daemon.appear();
    clocked(m_tally.cableAfterDaemon);
    m_daemon.detach(1);
    letEventsRunFor(300ms);
    m_cable.reset();
    m_daemonRestarts = true;
}

// The good phone is alone, and goes in good order or not.
void Storm::leave()
{
    m_second->leave();
    (void)waitUntil([this] { return m_second->state() == Phone::State::Over; },
                    QDeadlineTimer(10s));
    letEventsRunFor(500ms);
    for (const bool gently : {true, false}) {
        const auto begin = std::chrono::steady_clock::now();
        gently ? m_good->leave() : m_good->cutOff();
        std::ranges::copy(settledChange(begin, 1200ms).ms, std::back_inserter(m_tally.idle.ms));
        if (gently) {
            (void)join(m_good, u"good"_s, Clips::kSizes.front());
            letEventsRunFor(1s);
        }
    }
}

// As when a laptop's lid is closed, while phones send on.
void Storm::sleep()
{
    (void)join(m_good, u"good"_s, Clips::kSizes.front());
    (void)join(m_second, u"second"_s, Clips::kSizes[3]);
    std::atomic<bool> counting = false;
    std::atomic<bool> stop = false;
    auto pushed = std::async(std::launch::async,
                             [&, to = address()] { return push(to, m_clips, counting, stop); });
    letEventsRunFor(500ms);
    const auto process = static_cast<pid_t>(m_subject.processId());
    ::kill(process, SIGSTOP);
    counting = true;
    letEventsRunFor(kStop);
    counting = false;
    ::kill(process, SIGCONT);
    m_awake.ms.push_back(echo(*m_second));
    stop = true;
    m_pushedMegabytes =
        std::max(m_pushedMegabytes, static_cast<double>(resultOf(std::move(pushed))) / 1e6);
    m_tally.lostPhones += m_good->isAccepted() && m_second->isAccepted() ? 0 : 1;
}

} // namespace pevrix
