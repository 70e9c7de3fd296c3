#include "tools/soak/LongRecording.h"

#include "tools/doubles/Program.h"
#include "tools/doubles/ThisProcess.h"
#include "video/Mp4Recorder.h"
#include "video/Mp4RecorderPlatform_linux.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kSide = 32;
constexpr double kTolerance = 1.0 / 29.7; // a picture, in seconds
// The index that makes an ordinary file of the fragments in the end.
constexpr double kIndexBytes = 100; // for each picture
constexpr auto kBreath = 1ms;       // for the encoder, after each picture

struct Written
{
    std::vector<double> seconds; // of every picture, from the first one
    double megabytes = 0;        // more on the heap than in the first minute
    std::uint64_t dropped = 0;
};

Written record(const QString& file, int minutes)
{
    Written written;
    Clock::time_point now = Clock::now();
    const auto start = now;
    Mp4Recorder::Platform platform;
    platform.now = [&now] {
        return now;
    };
    Mp4Recorder recorder(platform);
    if (!recorder.open(file.toStdString(), kSide, kSide, 30)) {
        return written;
    }
    written.seconds.reserve(static_cast<std::size_t>(minutes) * 60 * 31);
    std::vector<std::uint8_t> picture(std::size_t{kSide} * kSide * 3);
    std::int64_t heap = 0;
    for (int i = 0; now - start < std::chrono::minutes(minutes); ++i) {
        std::ranges::fill(picture, static_cast<std::uint8_t>(i));
        written.seconds.push_back(std::chrono::duration<double>(now - start).count());
        recorder.writeFrame(picture.data());
        std::this_thread::sleep_for(kBreath);
        const double rate = i / 9000 % 2 == 0 ? 29.7 : 30.3;
        now += std::chrono::nanoseconds(std::llround(1e9 / rate));
        now += i % 20'000 == 19'999 ? 5s : 0s; // a phone that paused
        if (i == 2000) {
            heap = heapBytes();
        }
        written.megabytes =
            std::max(written.megabytes, static_cast<double>(heapBytes() - heap) / 1e6);
        written.megabytes = i <= 2000 ? 0 : written.megabytes;
    }
    recorder.close();
    written.dropped = recorder.droppedPictures();
    return written;
}

std::vector<double> timesIn(const QString& file)
{
    QProcess probe; // for a thread without an event loop
    probe.start(u"ffprobe"_s, words("-v error -select_streams v -show_entries packet=pts_time "
                                    "-of csv=p=0") +
                                  QStringList{file});
    probe.waitForFinished(-1);
    std::vector<double> times;
    for (const QByteArray& line : probe.readAllStandardOutput().split('\n')) {
        if (!line.isEmpty()) {
            times.push_back(line.split(',').constFirst().toDouble());
        }
    }
    std::ranges::sort(times);
    return times;
}

} // namespace

void recordForLong(const QString& file, int minutes, Verdicts& verdicts)
{
    const Written written = record(file, minutes);
    const std::vector<double> times = timesIn(file);
    // On a machine that is too busy the encoder leaves pictures out, and counts them.
    double worst = times.size() + written.dropped == written.seconds.size() ? 0 : 1e6;
    auto next = written.seconds.begin();
    for (const double time : times) {
        next = std::lower_bound(next, written.seconds.end(), time - kTolerance / 2);
        worst = next == written.seconds.end() ? 1e6 : std::max(worst, std::abs(time - *next++));
    }
    const bool complete = !times.empty() && worst <= kTolerance;
    verdicts.add(20, u"a recording of %1 minutes"_s.arg(minutes),
                 u"the pictures at their times, each in the file or counted as left out"_s,
                 u"%1 of %2 pictures, worst %3 ms off, %4 left out"_s.arg(times.size())
                     .arg(written.seconds.size())
                     .arg(worst * 1000, 0, 'f', 2)
                     .arg(written.dropped),
                 complete);
    const double limit = kIndexBytes * static_cast<double>(written.seconds.size()) / 1e6;
    verdicts.add(20, u"memory of a recording of %1 minutes"_s.arg(minutes),
                 u"the index alone: less than +%1 MB"_s.arg(limit, 0, 'f', 1),
                 u"+%1 MB"_s.arg(written.megabytes, 0, 'f', 1), written.megabytes < limit);
    QFile::remove(file);
}

} // namespace pevrix
