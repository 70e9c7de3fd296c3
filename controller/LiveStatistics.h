#pragma once

#include <QtTypes>

#include <chrono>

namespace pevrix {

// The figures of the status page, from counters that only grow.
class LiveStatistics
{
public:
    // One tick: `elapsedMs` since the last one, the pictures decoded so far, and the time spent on
    // `decodeCount` access units since the last tick.
    void tick(qint64 elapsedMs, qint64 framesDecoded, std::chrono::nanoseconds decodeTime,
              qint64 decodeCount)
    {
        m_fps = elapsedMs > 0
                    ? static_cast<int>((framesDecoded - m_lastFramesDecoded) * 1000 / elapsedMs)
                    : 0;
        m_lastFramesDecoded = framesDecoded;
        if (decodeCount > 0) {
            m_decodeMs = static_cast<int>(decodeTime.count() / decodeCount / 1'000'000);
        }
    }

    // Pictures a second over the last tick.
    [[nodiscard]] int fps() const { return m_fps; }

    // Mean time of decoding an access unit; the last known one while nothing is decoded.
    [[nodiscard]] int decodeMs() const { return m_decodeMs; }

private:
    qint64 m_lastFramesDecoded = 0;
    int m_fps = 0;
    int m_decodeMs = 0;
};

} // namespace pevrix
