// The long run of ./dev soak: the program in both builds, under everything that phones, cables,
// strangers, readers and the system did to it in the field, and a table of what was demanded and
// what was seen.
#include "tools/soak/Clips.h"
#include "tools/soak/Endings.h"
#include "tools/soak/LongRecording.h"
#include "tools/soak/Media.h"
#include "tools/soak/Storm.h"
#include "tools/soak/Subject.h"
#include "tools/soak/Verdicts.h"

#include <QCommandLineParser>
#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace pevrix;

namespace {

// The counts of the table are those of a run of this length; a shorter one does its share.
constexpr int kFullMinutes = 20;

struct Plan
{
    Build release;
    Build sanitized;
    QString folder;
    QString part; // empty: everything
    int minutes = kFullMinutes;

    [[nodiscard]] int share(int full) const
    {
        return std::clamp(full * minutes / kFullMinutes, 1, full);
    }
    [[nodiscard]] std::chrono::seconds percent(int share) const
    {
        return std::chrono::seconds(minutes * 60 * share / 100);
    }
};

std::optional<Plan> readPlan(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Runs the program for long, under load, and judges it. ./dev soak prepares what it needs."_s);
    parser.addHelpOption();
    parser.addOptions({{u"release"_s, u"Folder of the release build's programs."_s, u"folder"_s},
                       {u"sanitized"_s, u"The same of the sanitizers' build."_s, u"folder"_s},
                       {u"out"_s, u"Where the programs' files go; emptied."_s, u"folder"_s},
                       {u"minutes"_s, u"How long, about."_s, u"number"_s, u"20"_s},
                       {u"part"_s, u"Only this: storms or endings."_s, u"name"_s}});
    parser.process(application);
    Plan plan{.release = {u"release"_s, parser.value(u"release"_s), false},
              .sanitized = {u"sanitized"_s, parser.value(u"sanitized"_s), true},
              .folder = parser.value(u"out"_s),
              .part = parser.value(u"part"_s),
              .minutes = parser.value(u"minutes"_s).toInt()};
    if (plan.minutes < 1 || plan.release.bin.isEmpty() || plan.sanitized.bin.isEmpty() ||
        plan.folder.isEmpty()) {
        std::fprintf(stderr,
                     "pevrix_soak: folders and a number of minutes are needed; see --help\n");
        return {};
    }
    return plan;
}

void judge(const Tally& tally, const Plan& plan, Verdicts& verdicts)
{
    const auto atLeast = [&](int number, const char* what, int full, int seen) {
        verdicts.add(number, QString::fromLatin1(what), QString::number(plan.share(full)),
                     QString::number(seen), seen >= plan.share(full));
    };
    const auto within = [&](int number, const char* what, double limitMs, const Times& times) {
        verdicts.add(number, QString::fromLatin1(what), u"%1 ms"_s.arg(limitMs), times.text(),
                     !times.ms.empty() && times.worst() <= limitMs);
    };
    verdicts.add(5, u"slow and silent strangers served at once"_s, u"at most 128"_s,
                 QString::number(tally.mostHeld), tally.mostHeld <= 128);
    within(5, "a phone is greeted beside 200 strangers of a byte a second", 1000,
           tally.greetedBesideSlow);
    verdicts.add(5, u"1080p video beside them, as another program sees it"_s,
                 u"at least 25 changes a second"_s, QString::number(tally.slowestVideo, 'f', 1),
                 tally.slowestVideo >= 25);
    within(6, "a phone is greeted after 2,000 connections", 1000, tally.greetedAfterCrowd);
    verdicts.add(6, u"phones that were lost to what others did"_s, u"0"_s,
                 QString::number(tally.lostPhones), tally.lostPhones == 0);
    atLeast(8, "phones gone in five ways", 1000, tally.broken);
    atLeast(8, "bare connections", 5000, tally.bare);
    atLeast(9, "phones that fell silent and were dropped", 50,
            static_cast<int>(tally.silence.dropped.ms.size()));
    within(9, "until a silent phone is dropped (4 s, and a ping's time)", 6500,
           tally.silence.dropped);
    within(9, "until it is greeted when it comes again", 1000, tally.silence.readmitted);
    within(9, "until the paused card is seen", 3000, tally.paused);
    within(10, "until the video is seen again after a stall", 1000, tally.resumed);
    within(10, "until the idle card is seen after a phone's end", 350, tally.idle);
    atLeast(13, "changes of the picture's size", 100, tally.sizes);
    atLeast(17, "restarts of the USB daemon", 100, tally.daemonRestarts);
    within(17, "from the plug to the phone, also after 50 plugs in a second", 3000, tally.cable);
    within(17, "from the daemon's return to the phone (it is tried every 5 s)", 7500,
           tally.cableAfterDaemon);
    verdicts.add(18, u"recordings that a click or another size ended"_s, u"all play"_s,
                 u"%1 of %2"_s.arg(tally.recordingsThatPlay).arg(tally.recordings),
                 tally.recordings > 0 && tally.recordingsThatPlay == tally.recordings);
    atLeast(24, "readers that came and went", 1000, tally.visitors);
    verdicts.add(24, u"readers that got nothing"_s, u"0"_s,
                 QString::number(tally.visitorsTurnedAway), tally.visitorsTurnedAway == 0);
}

void storm(const Build& build, const Plan& plan, std::chrono::seconds time, const Clips& clips,
           Verdicts& verdicts, Tally& tally)
{
    say(u"phones, strangers and readers around the %1 build"_s.arg(build.name));
    Subject subject(build, plan.folder + u"/storm-"_s + build.name);
    if (!subject.awaitStart()) {
        verdicts.add(26, u"the %1 build"_s.arg(build.name), u"starts"_s, u"does not"_s, false);
        std::printf("%s\n", qPrintable(subject.log()));
        return;
    }
    Storm(subject, build, clips, verdicts, tally).run(time);
    const auto end = subject.quit();
    verdicts.add(26, u"its end, "_s + build.name + u" build"_s, u"code 0, no leak, no fault"_s,
                 u"code %1"_s.arg(end.code), end.code == 0);
    if (end.code != 0) {
        std::printf("%s\n", qPrintable(subject.log().right(20'000)));
    }
}

void runStorms(const Plan& plan, const Clips& clips, Verdicts& verdicts)
{
    Verdicts recorded;
    std::jthread recording(
        [&] { recordForLong(plan.folder + u"/long.mp4"_s, plan.share(120), recorded); });
    Tally tally;
    storm(plan.sanitized, plan, plan.percent(36), clips, verdicts, tally);
    storm(plan.release, plan, plan.percent(26), clips, verdicts, tally);
    judge(tally, plan, verdicts);
    recording.join();
    verdicts.add(recorded);
}

void runEndings(const Plan& plan, const Clips& clips, Media& media, Verdicts& verdicts)
{
    say(u"programs that end at any moment"_s);
    Endings endings(plan.folder, clips, verdicts);
    endings.runOutOfDescriptors(plan.release);
    endings.runOutOfMemory(plan.release);
    endings.failAllocations(plan.release, plan.share(1000));
    endings.flapInterfaces(plan.release, plan.share(50));
    endings.restartTheMedia(plan.release, media, plan.share(10));
    endings.fillTheDisk(plan.release, plan.share(20));
    endings.killWhileRecording(plan.release, plan.share(50));
    endings.quitAtAnyMoment(plan.sanitized, plan.share(30));
    endings.quitAtAnyMoment(plan.release, plan.share(170));
}

// Two thirds of the time are the storms'; the rest takes as long as its counts need.
int run(const Plan& plan)
{
    Media media;
    if (!media.start()) {
        std::fprintf(stderr, "pevrix_soak: the media service does not start\n");
        return 1;
    }
    Verdicts verdicts;
    const Clips clips;
    if (plan.part != "endings"_L1) {
        runStorms(plan, clips, verdicts);
    }
    if (plan.part != "storms"_L1) {
        runEndings(plan, clips, media, verdicts);
    }
    return verdicts.print() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it draws its phones' pictures, but shows nothing
    const QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"pevrix_soak"_s);
    rlimit files{};
    ::getrlimit(RLIMIT_NOFILE, &files);
    files.rlim_cur = files.rlim_max; // a crowd of 2,000 needs more than is usual
    ::setrlimit(RLIMIT_NOFILE, &files);
    const auto plan = readPlan(application);
    return plan ? run(*plan) : 2;
}
