#include "tools/soak/Storm.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr quint16 kDaemonPort = 27015; // where the program looks for it
constexpr auto kRestartLook = 200ms;
constexpr auto kQuietTime = 2s;
// What strangers have left in the system's buffers is worked off beside everything else, also after
// they are gone: on a busy machine that takes a while.
constexpr auto kWorkOffLimit = 180s;
constexpr int kFewDescriptors = 10; // more than before the first round
constexpr std::size_t kRounds = 3;  // at least
constexpr std::size_t kWarmUp = 2;  // rounds
constexpr double kGrowth = 2;       // megabytes

// What it came down to in the first and in the second half after the warm-up, in megabytes: from
// round to round it goes up and down by more than what a leak adds.
std::pair<double, double> leastOfHalves(const std::vector<Resources>& samples)
{
    const std::span rounds = std::span(samples).subspan(kWarmUp - 1);
    const std::size_t half = (rounds.size() + 1) / 2;
    const auto least = [](std::span<const Resources> part) {
        return std::ranges::min(part, {}, &Resources::megabytes).megabytes;
    };
    return {least(rounds.first(half)), least(rounds.subspan(half))};
}

// What the system lets wait on the way between two sockets, in megabytes.
double socketBuffers()
{
    double bytes = 0;
    for (const auto& name : {u"tcp_rmem"_s, u"tcp_wmem"_s}) {
        QFile file(u"/proc/sys/net/ipv4/"_s + name);
        bytes += file.open(QIODevice::ReadOnly)
                     ? file.readAll().simplified().split(' ').constLast().toDouble()
                     : 0;
    }
    return bytes / 1e6;
}

} // namespace

Storm::Storm(Subject& subject, const Build& build, const Clips& clips, Verdicts& verdicts,
             Tally& tally)
    : m_subject(subject)
    , m_build(build)
    , m_clips(clips)
    , m_verdicts(verdicts)
    , m_tally(tally)
{
    m_daemon.answer = [](int device) {
        return MuxDaemon::result(device == 1 ? MuxDaemon::kSuccess : MuxDaemon::kRefused);
    };
    QObject::connect(&m_daemon, &MuxDaemon::tunnelOpened, &m_daemon,
                     [this](int, QTcpSocket* socket) {
                         m_cable = makePhone(u"cable"_s, Clips::kSizes[1]);
                         m_cable->takeTunnel(socket);
                     });
    m_daemonTimer.callOnTimeout(&m_daemonTimer, [this] { restartDaemon(); });
    m_daemonTimer.start(kRestartLook);
}

// It goes as soon as the program has found it, which looks for it every five seconds.
void Storm::restartDaemon()
{
    if (m_daemonGone || (m_daemonRestarts && !m_daemon.listeners.isEmpty())) {
        m_tally.daemonRestarts += m_daemonGone ? 0 : 1;
        m_daemon.vanish();
        m_daemonGone = !m_daemon.appear(kDaemonPort);
    }
}

Address Storm::address() const
{
    return {.port = m_subject.port(), .token = m_subject.token()};
}

std::unique_ptr<Phone> Storm::makePhone(const QString& name, QSize size) const
{
    return std::make_unique<Phone>(m_clips.source(size),
                                   PhoneIdentity{.deviceId = name, .name = name});
}

// How long it took in milliseconds, until it was greeted.
double Storm::join(std::unique_ptr<Phone>& phone, const QString& name, QSize size)
{
    QElapsedTimer clock;
    clock.start();
    phone = makePhone(name, size);
    phone->connectTo(u"127.0.0.1"_s, m_subject.port(), m_subject.token());
    const bool accepted = waitUntil([&] { return phone->isAccepted(); }, QDeadlineTimer(30s));
    return accepted ? static_cast<double>(clock.nsecsElapsed()) / 1e6 : 1e6;
}

double Storm::echo(Phone& phone)
{
    bool answered = false;
    const auto listening =
        QObject::connect(&phone, &Phone::received, &phone, [&answered](const Message& message) {
            answered = answered || (message.type == MessageType::Pong && message.payload == "echo");
        });
    QElapsedTimer clock;
    clock.start();
    phone.send(buildMessage(MessageType::Ping, "echo"));
    const bool came = waitUntil([&] { return answered; }, QDeadlineTimer(30s));
    QObject::disconnect(listening);
    return came ? static_cast<double>(clock.nsecsElapsed()) / 1e6 : 1e6;
}

void Storm::run(std::chrono::seconds time)
{
    (void)m_daemon.appear(kDaemonPort);
    letEventsRunFor(kQuietTime); // its first reader has come
    m_before = m_subject.resources();
    const QDeadlineTimer end(time);
    while (m_subject.isRunning() && (!end.hasExpired() || m_samples.size() < kRounds)) {
        ++m_round;
        round();
        quiet();
    }
    judge();
    m_visitors.setComing(false);
    m_tally.visitors += m_visitors.served();
    m_tally.visitorsTurnedAway += m_visitors.turnedAway();
}

void Storm::round()
{
    m_visitors.setComing(true);
    m_daemonRestarts = true;
    (void)m_reader.takeGaps();
    (void)m_reader.takeStamps();
    (void)join(m_good, u"good"_s, Clips::kSizes.front());
    (void)join(m_second, u"second"_s, Clips::kSizes[3]);
    for (const auto& [name, step] :
         {std::pair("recording and other sizes", &Storm::streamAndRecord),
          std::pair("a stall", &Storm::stallAndResume),
          std::pair("broken and silent connections", &Storm::breakAndFallSilent),
          std::pair("slow strangers", &Storm::meetSlowStrangers),
          std::pair("a crowd of strangers", &Storm::meetTheCrowd),
          std::pair("a flood", &Storm::bearTheFlood)}) {
        say(u"  "_s + QString::fromLatin1(name));
        (this->*step)();
    }
    m_tally.lostPhones += m_good->isAccepted() && m_second->isAccepted() ? 0 : 1;
    plugIn();
    leave();
    m_gaps += m_reader.takeGaps();
    const auto stamps = m_reader.takeStamps();
    m_rates.push_back(stamps.rate);
    m_stampsRise = m_stampsRise && stamps.rising;
    sleep();
}

// Nobody is there but the camera's first reader and the daemon without a phone.
void Storm::quiet()
{
    m_good.reset();
    m_second.reset();
    (void)waitUntil(
        [this] {
            return m_subject.resources().descriptors <= m_before.descriptors + kFewDescriptors;
        },
        QDeadlineTimer(kWorkOffLimit));
    m_visitors.setComing(false);
    m_daemonRestarts = false;
    (void)waitUntil([this] { return m_visitors.areGone() && !m_daemon.listeners.isEmpty(); },
                    QDeadlineTimer(30s));
    letEventsRunFor(kQuietTime);
    Resources now = m_subject.resources();
    if (m_samples.size() >= kWarmUp) { // what has just been closed may take a moment to go
        (void)waitUntil(
            [&] {
                now = m_subject.resources();
                return now.descriptors == m_samples[kWarmUp - 1].descriptors &&
                       now.threads == m_samples[kWarmUp - 1].threads;
            },
            QDeadlineTimer(10s));
    }
    m_samples.push_back(now);
    say(u"%1 build, round %2: %3 MB, %4 descriptors, %5 threads"_s.arg(m_build.name)
            .arg(m_round)
            .arg(now.megabytes, 0, 'f', 1)
            .arg(now.descriptors)
            .arg(now.threads));
}

void Storm::judge()
{
    const auto row = [this](int number, const char* what, const QString& demanded,
                            const QString& seen, bool held) {
        m_verdicts.add(number, QString::fromLatin1(what) + u", "_s + m_build.name + u" build"_s,
                       demanded, seen, held);
    };
    row(26, "the program", u"runs to the end"_s, u"%1 rounds"_s.arg(m_round),
        m_subject.isRunning() && m_samples.size() >= kRounds);
    if (!m_subject.isRunning() || m_samples.size() < kRounds) {
        return;
    }
    const Resources& warm = m_samples[kWarmUp - 1];
    const Resources& last = m_samples.back();
    row(26, "descriptors and threads", u"as after the warm-up"_s,
        u"%1 and %2, then %3 and %4"_s.arg(warm.descriptors)
            .arg(warm.threads)
            .arg(last.descriptors)
            .arg(last.threads),
        warm.descriptors == last.descriptors && warm.threads == last.threads);
    const auto [before, after] = leastOfHalves(m_samples);
    row(26, "resident memory",
        m_build.sanitized
            ? u"told only, for freed memory is kept; leaks are looked for at the end"_s
            : u"at most +%1 MB in the second half"_s.arg(kGrowth),
        u"at least %1 MB, then %2 MB"_s.arg(before, 0, 'f', 1).arg(after, 0, 'f', 1),
        m_build.sanitized || after - before <= kGrowth);
    const auto [slowest, fastest] = std::ranges::minmax(m_rates);
    row(10, "the camera's rate", u"30 +-0.5, times that rise"_s,
        u"%1 to %2%3"_s.arg(slowest, 0, 'f', 2)
            .arg(fastest, 0, 'f', 2)
            .arg(m_stampsRise ? QString() : u", times fall"_s),
        slowest > 29.5 && fastest < 30.5 && m_stampsRise);
    const qint64 unexcused = m_gaps.tooLong - m_gaps.excused;
    row(10, "gaps of the camera", u"none over 100 ms but where the machine was held up"_s,
        u"%1 of %2, and %3 held up; worst %4 ms"_s.arg(unexcused)
            .arg(m_gaps.pictures)
            .arg(m_gaps.excused)
            .arg(m_gaps.worstMs, 0, 'f', 0),
        unexcused == 0);
    row(6, "memory for 2,000 connections", u"at most +5 MB"_s,
        u"%1 MB"_s.arg(m_crowdMegabytes, 0, 'f', 1), m_crowdMegabytes <= 5 || m_build.sanitized);
    row(5, "echo beside 120 flooding strangers", u"median 20 ms, worst 150 ms"_s, m_echoes.text(),
        m_build.sanitized || (m_echoes.median() <= 20 && m_echoes.worst() <= 150));
    const double limit = socketBuffers() + 2; // and what the program has read
    row(7, "stopped for 5 s under a flood of video",
        u"at most %1 MB wait, as the system has it; answers within 2 s"_s.arg(limit, 0, 'f', 0),
        u"%1 MB, %2"_s.arg(m_pushedMegabytes, 0, 'f', 1).arg(m_awake.text()),
        m_pushedMegabytes <= limit && (m_build.sanitized || m_awake.worst() <= 2000));
}

} // namespace pevrix
