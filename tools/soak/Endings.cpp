#include "tools/soak/Endings.h"

#include "tools/phonesim/Phone.h"
#include "tools/soak/Crowd.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr double kQuitLimitMs = 2000;
constexpr auto kMediaLimit = 20s;
constexpr int kMoreThanFit = 60; // what is not accepted waits in a queue of 50

double secondsOf(const QElapsedTimer& clock)
{
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

} // namespace

int Endings::between(int low, int high)
{
    return std::uniform_int_distribution(low, high)(m_random);
}

QString Endings::folderOf(const char* name) const
{
    const QString folder = m_folder + u'/' + QString::fromLatin1(name);
    QDir(folder).removeRecursively();
    return folder;
}

std::unique_ptr<Phone> Endings::phoneFor(const Subject& subject) const
{
    auto phone = std::make_unique<Phone>(m_clips.source(Clips::kSizes[1]));
    phone->connectTo(u"127.0.0.1"_s, subject.port(), subject.token());
    return phone;
}

void Endings::quitAtAnyMoment(const Build& build, int count)
{
    Times times;
    int clean = 0;
    int recordings = 0;
    int playing = 0;
    QString lastWords;
    for (int i = 0; i < count; ++i) {
        const QString folder = folderOf("quits");
        Subject subject(build, folder);
        if (!subject.awaitStart()) {
            lastWords = subject.log();
            continue;
        }
        const auto phone = i % 8 == 0 ? nullptr : phoneFor(subject);
        letEventsRunFor(std::chrono::milliseconds(between(0, 1200)));
        if (i % 2 == 0) {
            subject.pressRecord();
            letEventsRunFor(std::chrono::milliseconds(between(0, 500)));
        }
        const auto end = subject.quit();
        times.ms.push_back(end.ms);
        clean += end.code == 0 ? 1 : 0;
        lastWords = end.code == 0 ? lastWords : subject.log();
        for (const QString& file : subject.recordings()) {
            // One that was begun before the first picture came has none.
            ++recordings;
            playing += play(file) || QFile(file).size() < 1000 ? 1 : 0;
        }
    }
    if (!lastWords.isEmpty()) {
        std::printf("%s\n", qPrintable(lastWords));
    }
    m_verdicts.add(
        25, u"quit at random moments, "_s + build.name + u" build"_s,
        u"%1 times with code 0%2"_s.arg(count).arg(build.sanitized ? QString() : u" within 2 s"_s),
        u"%1 times, %2"_s.arg(clean).arg(times.text()),
        clean == count && (build.sanitized || times.worst() <= kQuitLimitMs));
    m_verdicts.add(25, u"recordings that a quit ended, "_s + build.name + u" build"_s,
                   u"all play"_s, u"%1 of %2"_s.arg(playing).arg(recordings),
                   playing == recordings && (recordings > 0 || count < 10));
}

void Endings::killWhileRecording(const Build& build, int count)
{
    int opened = 0;
    Times lost;
    for (int i = 0; i < count; ++i) {
        Subject subject(build, folderOf("kills"));
        const bool started = subject.awaitStart();
        const auto phone = started ? phoneFor(subject) : nullptr;
        if (!started || !subject.awaitLog(u"first picture"_s, 10s)) {
            continue;
        }
        letEventsRunFor(200ms);
        subject.pressRecord();
        if (!subject.awaitRecording()) {
            continue;
        }
        QElapsedTimer clock;
        clock.start();
        letEventsRunFor(std::chrono::milliseconds(between(1200, 3500)));
        const double recorded = secondsOf(clock);
        subject.kill();
        if (const auto playable = play(subject.recordings().value(0))) {
            ++opened;
            lost.ms.push_back((recorded - playable->seconds) * 1000);
        }
    }
    m_verdicts.add(18, u"killed while recording"_s,
                   u"%1 files play, at most 1 s is lost"_s.arg(count),
                   u"%1 play, lost: %2"_s.arg(opened).arg(lost.text()),
                   opened == count && lost.worst() <= 1000);
}

void Endings::fillTheDisk(const Build& build, int count)
{
    int told = 0;
    int playing = 0;
    int going = 0;
    double mostLost = 0;
    for (int i = 0; i < count; ++i) {
        // Full after 5 to 16 seconds of 75 kB, in a file system that only this program sees.
        const QString mount =
            u"mount -t tmpfs -o size=%1k none \"$1\""_s.arg(400 + i * 800 / count);
        Subject subject(build, folderOf("full"), {mount, words("unshare -Urm")});
        const bool started = subject.awaitStart();
        const auto phone = started ? phoneFor(subject) : nullptr;
        if (!started || !subject.awaitLog(u"first picture"_s, 10s)) {
            continue;
        }
        subject.pressRecord();
        if (!subject.awaitRecording()) {
            continue;
        }
        QElapsedTimer clock;
        clock.start();
        told += subject.awaitLog(u"the recording lacks its end"_s, 30s) ? 1 : 0;
        const double recorded = secondsOf(clock);
        if (const auto playable = play(subject.recordings().value(0))) {
            ++playing;
            mostLost = std::max(mostLost, recorded - playable->seconds);
        }
        const qint64 before = phone->framesSent();
        letEventsRunFor(500ms);
        going += subject.isRunning() && phone->framesSent() > before + 5 ? 1 : 0;
    }
    m_verdicts.add(
        19, u"disks that are full at different times"_s,
        u"%1 told, play, video goes on; at most 2 s from the file's end to the message"_s.arg(
            count),
        u"%1 told, %2 play, %3 go on; worst %4 s"_s.arg(told).arg(playing).arg(going).arg(
            mostLost, 0, 'f', 2),
        told == count && playing == count && going == count && mostLost <= 2);
}

void Endings::runOutOfDescriptors(const Build& build)
{
    Subject subject(build, folderOf("few"), {u"ulimit -n 64"_s, {}});
    if (!subject.awaitStart()) {
        m_verdicts.add(27, u"64 descriptors"_s, u"the program starts"_s, u"it does not"_s, false);
        return;
    }
    const auto phone = phoneFor(subject);
    (void)waitUntil([&] { return phone->isAccepted(); }, QDeadlineTimer(10s));
    const Address address{.port = subject.port(), .token = subject.token()};
    std::atomic<bool> there = false;
    std::atomic<bool> stop = false;
    auto held = std::async(std::launch::async, [&] {
        return holdConnections(address, kMoreThanFit, false, there, stop);
    });
    const bool told = subject.awaitLog(u"cannot accept a connection"_s, 10s);
    letEventsRunFor(2s);
    const qint64 before = phone->framesSent();
    letEventsRunFor(1s);
    const bool streams = phone->framesSent() > before + 15;
    stop = true;
    (void)resultOf(std::move(held));
    QElapsedTimer clock;
    clock.start();
    const auto late = std::make_unique<Phone>(m_clips.source(Clips::kSizes[3]),
                                              PhoneIdentity{.deviceId = u"late"_s});
    late->connectTo(u"127.0.0.1"_s, subject.port(), subject.token());
    const bool greeted = waitUntil([&] { return late->isAccepted(); }, QDeadlineTimer(10s));
    const double seconds = secondsOf(clock);
    const auto end = subject.quit();
    m_verdicts.add(
        27, u"64 descriptors and 60 strangers"_s,
        u"told; the phone streams on; another is greeted within 3 s; quits"_s,
        u"%1; %2; %3; code %4"_s
            .arg(told ? u"told"_s : u"not told"_s, streams ? u"streams"_s : u"broken"_s,
                 greeted ? u"greeted in %1 s"_s.arg(seconds, 0, 'f', 1) : u"not greeted"_s)
            .arg(end.code),
        told && streams && greeted && seconds <= 3 && end.code == 0);
}

void Endings::restartTheMedia(const Build& build, Media& media, int count)
{
    Subject subject(build, folderOf("media"));
    int back = 0;
    Times times;
    const bool started = subject.awaitStart();
    for (int i = 0; started && i < count; ++i) {
        media.kill();
        letEventsRunFor(500ms);
        if (!media.start()) {
            break;
        }
        QElapsedTimer clock;
        clock.start();
        // A reader that came too early leaves; another one tries.
        const bool reads = waitUntil(
            [] {
                Program reader(u"gst-launch-1.0"_s,
                               words("-q pipewiresrc target-object=pevrix-camera num-buffers=1 ! "
                                     "video/x-raw,format=YUY2 ! fakesink sync=false"));
                return waitUntil([&] { return reader.state() == QProcess::NotRunning; },
                                 QDeadlineTimer(3s)) &&
                       reader.exitCode() == 0;
            },
            QDeadlineTimer(kMediaLimit));
        back += reads ? 1 : 0;
        times.ms.push_back(secondsOf(clock) * 1000);
    }
    m_verdicts.add(24, u"the media service dies and comes again"_s,
                   u"%1 times the camera is back within 5 s"_s.arg(count),
                   u"%1 times, %2"_s.arg(back).arg(times.text()),
                   back == count && times.worst() <= 5000);
}

void Endings::flapInterfaces(const Build& build, int count)
{
    // In a network of its own, which only the shell that it was made by can reach: that one takes
    // an address and the interface away and gives them back, and then says who listens.
    const QString flapping = uR"(ip link set lo up && { (for i in $(seq %1); do
            ip addr add 10.9.8.7/24 dev lo && ip link set lo down && sleep 0.1 &&
                ip link set lo up && ip addr del 10.9.8.7/24 dev lo && echo flap >&2; sleep 0.1; done
            sleep 2; ss -ltn >&2; echo flapped >&2) & })"_s.arg(count);
    Subject subject(build, folderOf("flap"), {flapping, words("unshare -Urmn")});
    const bool started = subject.awaitStart() && subject.awaitLog(u"flapped"_s, 60s);
    const auto times =
        subject.log().count(QRegularExpression(u"^flap$"_s, QRegularExpression::MultilineOption));
    const bool listens = started && subject.log().contains(
                                        QRegularExpression(u"LISTEN.*:%1 "_s.arg(subject.port())));
    const auto end = subject.quit();
    m_verdicts.add(22, u"an interface that comes and goes"_s,
                   u"%1 times; the program listens on and quits"_s.arg(count),
                   u"%1 times; %2; code %3"_s.arg(times)
                       .arg(listens ? u"listens"_s : u"does not listen"_s)
                       .arg(end.code),
                   times == count && listens && end.code == 0);
}

} // namespace pevrix
