#pragma once

#include "tools/doubles/CameraLog.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <chrono>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace pevrix {

// Every picture that a camera may show in a scenario: what a decoder alone makes of the bytes that
// phones sent, and cards. Pictures are told apart by their hashes.
class Footage
{
public:
    // `video` is every H.264 byte that the phone sent. Fails when two pictures of it are alike.
    void addPhone(const QString& name, const QByteArray& video);
    void addCard(const QString& name, const std::vector<std::uint8_t>& pixels);

    // Who is seen, one after the other; "?" for a picture that nobody sent. Fails when pictures of
    // a phone come twice (in a row they may with `repeats`) or not in the order in which they were
    // sent.
    [[nodiscard]] std::string story(std::span<const std::uint64_t> hashes, bool repeats);

    // Of the phone's pictures, as many were seen by the last story().
    [[nodiscard]] int seen(const QString& name) const { return m_seen.value(name); }
    [[nodiscard]] int sent(const QString& name) const { return m_sent.value(name); }

private:
    struct Origin
    {
        QString name;
        int number = 0; // of a phone's picture, from 1; 0 for a card
    };

    std::map<std::uint64_t, Origin> m_origins;
    QHash<QString, int> m_sent;
    QHash<QString, int> m_seen;
};

// What the camera library wrote down.
[[nodiscard]] std::vector<CameraRecord> readCameraLog(const QString& file);
[[nodiscard]] std::vector<std::uint64_t> sentHashes(const std::vector<CameraRecord>& log);

// The size and number of the pictures that another program finds in the file: "160,120,31".
[[nodiscard]] std::string played(const QString& file);

// How long this machine holds up a thread that wakes up at the camera's rate, while it lives.
class HoldUps
{
public:
    HoldUps();

    [[nodiscard]] std::vector<std::chrono::nanoseconds> end();

private:
    std::vector<std::chrono::nanoseconds> m_gaps;
    std::jthread m_thread; // last: it uses the rest
};

// From its first picture to its deletion each camera gets one at least every 100 ms, as far as the
// machine lets anybody; one camera is there at a time, and none at the end. (A camera that was made
// anew has none until the first picture of its size is there.)
void expectNeverStarved(const std::vector<CameraRecord>& log, HoldUps& holdUps);

} // namespace pevrix
