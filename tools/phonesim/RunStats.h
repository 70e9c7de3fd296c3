#pragma once

#include "tools/phonesim/ExitCode.h"

#include <QString>

#include <chrono>

namespace pevrix {

/// What the phone is doing just now.
enum class PhoneState
{
    Connecting = 0,
    Greeting, ///< connected, the hello is not answered yet
    Holding,  ///< accepted; the PC does not want video
    Streaming,
    Stalled, ///< the video is held back on purpose
    Leaving,
    Silent, ///< nothing is sent any more, on purpose
};

[[nodiscard]] const char* describe(PhoneState state);

/// What a run has done so far, over all its connections.
struct RunStats
{
    PhoneState state = PhoneState::Connecting;
    qint64 connections = 0; ///< established
    qint64 accepted = 0;
    qint64 refused = 0;
    qint64 lost = 0;
    qint64 frames = 0;
    qint64 keyframes = 0;
    qint64 configs = 0;
    qint64 streamInfos = 0;
    qint64 thumbnails = 0;
    qint64 pings = 0;     ///< received from the PC and answered
    qint64 starts = 0;    ///< start requests received
    qint64 dropped = 0;   ///< frames given up because the phone or the PC was too slow
    qint64 malformed = 0; ///< malformed messages sent, a batch counting once
    qint64 bytes = 0;     ///< everything sent, headers included

    /// Adds the counts; the state stays.
    RunStats& operator+=(const RunStats& other);
};

/// The closing line for scripts: "summary" and then key=value pairs. Keys may be added, but never
/// change their meaning.
[[nodiscard]] QString summary(const RunStats& stats, ExitCode code,
                              std::chrono::milliseconds elapsed);

} // namespace pevrix
