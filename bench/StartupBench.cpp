// Time from the start of the process to the first shown frame of the window, and memory when idle:
// the program beside a minimal window of the same Qt, in turn, on a virtual display.
//
// Both are watched from outside: Qt's own scene graph says in the log when it has swapped a frame.
#include "tools/doubles/Program.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace pevrix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRuns = 9;
constexpr int kIdleMs = 3000; // until the memory is looked at

struct Run
{
    double firstFrameMs = 0;
    double residentMb = 0;
    double ownMb = 0; // not shared with other programs
};

// Reads until a frame has been swapped; false when none comes. A frame "rendered in 0ms" is none:
// the window was not there yet.
bool waitForFrame(Program& process)
{
    static const QRegularExpression frame(u"frame rendered in [1-9]"_s);
    const bool seen = waitUntil([&] { return process.errors().contains(frame); });
    if (!seen) {
        std::fprintf(stderr, "%s", qPrintable(process.errors()));
    }
    return seen;
}

// A line of /proc/PID/smaps_rollup, in megabytes.
double megabytes(const QString& rollup, const QString& key)
{
    const QRegularExpression line(u"^%1:\\s+(\\d+) kB"_s.arg(key),
                                  QRegularExpression::MultilineOption);
    return line.match(rollup).captured(1).toDouble() / 1024;
}

bool measure(const QString& program, const QProcessEnvironment& environment, Run& run)
{
    QElapsedTimer clock;
    clock.start();
    Program process(program, {}, environment);
    if (!waitForFrame(process)) {
        return false;
    }
    run.firstFrameMs = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    QThread::msleep(kIdleMs);
    QFile file(u"/proc/%1/smaps_rollup"_s.arg(process.processId()));
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QString rollup = QString::fromLatin1(file.readAll());
    run.residentMb = megabytes(rollup, u"Rss"_s);
    run.ownMb = megabytes(rollup, u"Private_Dirty"_s) + megabytes(rollup, u"Private_Clean"_s);
    return true;
}

double median(const std::vector<Run>& runs, double Run::* figure)
{
    std::vector<double> values;
    for (const Run& run : runs) {
        values.push_back(run.*figure);
    }
    std::ranges::nth_element(values, values.begin() + kRuns / 2);
    return values[kRuns / 2];
}

void print(const char* what, double Run::* figure, const std::vector<Run>& program,
           const std::vector<Run>& peer)
{
    const double ours = median(program, figure);
    const double theirs = median(peer, figure);
    std::printf("%-30s %8.1f   minimal window %8.1f   ratio %.2f\n", what, ours, theirs,
                ours / theirs);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString bin = QCoreApplication::applicationDirPath();
    const QTemporaryDir home;
    Program display(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x1024x24"_s,
                                u"-nolisten"_s, u"tcp"_s});
    if (!waitUntil([&] { return display.output().endsWith(u'\n'); })) {
        std::fprintf(stderr, "the virtual display did not start\n%s", qPrintable(display.errors()));
        return 1;
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, u":"_s + display.output().trimmed());
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.insert(u"QT_LOGGING_RULES"_s, u"qt.scenegraph.time.renderloop.debug=true"_s);
    environment.insert(u"HOME"_s, home.path());
    environment.insert(u"XDG_CONFIG_HOME"_s, home.path());
    environment.insert(u"LOCALAPPDATA"_s, home.path());

    std::vector<Run> program(kRuns);
    std::vector<Run> peer(kRuns);
    Run warmUp;
    bool ok = measure(bin + u"/pevrix"_s, environment, warmUp) &&
              measure(bin + u"/minimal_window"_s, environment, warmUp);
    for (int i = 0; ok && i < kRuns; ++i) {
        ok = measure(bin + u"/pevrix"_s, environment, program[static_cast<std::size_t>(i)]) &&
             measure(bin + u"/minimal_window"_s, environment, peer[static_cast<std::size_t>(i)]);
    }
    if (!ok) {
        std::fprintf(stderr, "a program did not show its window\n");
        return 1;
    }
    display.terminate(); // so that it takes its lock away
    static_cast<void>(display.awaitExit());
    std::printf("medians of %d runs each, in turn, on a virtual display without a GPU\n", kRuns);
    print("start to first frame, ms", &Run::firstFrameMs, program, peer);
    print("resident when idle, MB", &Run::residentMb, program, peer);
    print("of that not shared, MB", &Run::ownMb, program, peer);
    return 0;
}
