#include "tools/phonesim/RunStats.h"

#include <utility>

namespace pevrix {

const char* describe(PhoneState state)
{
    switch (state) {
    case PhoneState::Connecting:
        return "connecting";
    case PhoneState::Greeting:
        return "greeting";
    case PhoneState::Holding:
        return "holding";
    case PhoneState::Streaming:
        return "streaming";
    case PhoneState::Stalled:
        return "stalled";
    case PhoneState::Leaving:
        return "leaving";
    case PhoneState::Silent:
        return "silent";
    }
    return "";
}

RunStats& RunStats::operator+=(const RunStats& other)
{
    constexpr qint64 RunStats::* kCounts[] = {
        &RunStats::connections, &RunStats::accepted,  &RunStats::refused, &RunStats::lost,
        &RunStats::frames,      &RunStats::keyframes, &RunStats::configs, &RunStats::streamInfos,
        &RunStats::thumbnails,  &RunStats::pings,     &RunStats::starts,  &RunStats::dropped,
        &RunStats::malformed,   &RunStats::bytes,
    };
    for (const auto count : kCounts) {
        this->*count += other.*count;
    }
    return *this;
}

QString summary(const RunStats& stats, ExitCode code, std::chrono::milliseconds elapsed)
{
    const double seconds = static_cast<double>(elapsed.count()) / 1000.0;
    QString text = QStringLiteral("summary exit=%1 seconds=%2")
                       .arg(static_cast<int>(code))
                       .arg(seconds, 0, 'f', 3);
    const std::pair<const char*, qint64> counts[] = {
        {"connections", stats.connections},
        {"accepted", stats.accepted},
        {"refused", stats.refused},
        {"lost", stats.lost},
        {"frames", stats.frames},
        {"keyframes", stats.keyframes},
        {"configs", stats.configs},
        {"streaminfos", stats.streamInfos},
        {"thumbnails", stats.thumbnails},
        {"starts", stats.starts},
        {"pings", stats.pings},
        {"dropped", stats.dropped},
        {"malformed", stats.malformed},
        {"bytes", stats.bytes},
    };
    for (const auto& [name, count] : counts) {
        text += QStringLiteral(" %1=%2").arg(QString::fromLatin1(name)).arg(count);
    }
    return text;
}

} // namespace pevrix
