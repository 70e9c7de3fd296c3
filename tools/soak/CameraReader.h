#pragma once

#include "tools/doubles/Program.h"

#include <QTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>

namespace pevrix {

// A program that reads the virtual camera in a small size for as long as this object lives, and
// what it gets: when each picture came, whether it was another one, and the times written on them.
class CameraReader
{
public:
    using Point = std::chrono::steady_clock::time_point;

    CameraReader();
    ~CameraReader();
    CameraReader(const CameraReader&) = delete;
    CameraReader& operator=(const CameraReader&) = delete;

    struct Seen
    {
        qint64 pictures = 0;
        qint64 changes = 0; // pictures unlike the one before
        Point lastPicture;
        Point lastChange;
    };
    [[nodiscard]] Seen seen() const;

    struct Gaps
    {
        qint64 pictures = 0;
        qint64 tooLong = 0; // more than kLongestGap between two pictures
        qint64 excused = 0; // of these: this process itself was held up as well
        double worstMs = 0;

        void operator+=(const Gaps& more)
        {
            pictures += more.pictures;
            tooLong += more.tooLong;
            excused += more.excused;
            worstMs = std::max(worstMs, more.worstMs);
        }
    };
    static constexpr std::chrono::milliseconds kLongestGap{100};
    // Since the last call.
    [[nodiscard]] Gaps takeGaps();

    [[nodiscard]] bool isRunning() const { return m_program.state() == QProcess::Running; }

    // By the times on the pictures, since the last call.
    struct Stamps
    {
        double rate = 0; // pictures a second
        bool rising = true;
    };
    [[nodiscard]] Stamps takeStamps();

private:
    void readStamps();
    void readPictures(const std::stop_token& stop);
    void noteGap(Point::duration gap);
    void watch(const std::stop_token& stop);

    int m_pipe = -1; // our end
    Program m_program;
    mutable std::mutex m_mutex;
    Seen m_seen;
    Gaps m_gaps;
    std::atomic<Point::rep> m_heldUp = 0; // when this process was held up last
    QByteArray m_line;
    qint64 m_stamps = 0;
    double m_firstStamp = 0;
    double m_lastStamp = 0;
    bool m_rising = true;
    std::jthread m_reading;
    std::jthread m_watching;
};

// Readers that come, take a few pictures and go, one after the other.
class Visitors
{
public:
    Visitors();

    void setComing(bool coming) { m_coming = coming; }
    // No one is reading, for now.
    [[nodiscard]] bool areGone() const { return m_visitor == nullptr; }
    [[nodiscard]] int served() const { return m_served; }
    [[nodiscard]] int turnedAway() const { return m_turnedAway; }

private:
    void look();

    QTimer m_timer;
    std::unique_ptr<Program> m_visitor;
    bool m_coming = false;
    int m_served = 0;
    int m_turnedAway = 0;
};

} // namespace pevrix
