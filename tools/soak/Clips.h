#pragma once

#include "tools/phonesim/VideoSource.h"

#include <QSize>

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace pevrix {

// Two seconds of video in each size that phones of the long run have, encoded once: a live encoder
// for 1080p would take the processor from the program that is looked at.
class Clips
{
public:
    static constexpr int kFps = 30;
    // The first one is what is streamed most of the time; the last is no multiple of 16.
    static constexpr std::array kSizes = {QSize(1920, 1080), QSize(1280, 720), QSize(720, 1280),
                                          QSize(640, 480), QSize(1918, 1078)};

    Clips();

    struct Clip
    {
        QByteArray bytes;
        std::vector<AccessUnit> units; // into bytes
    };
    [[nodiscard]] const Clip& of(QSize size) const { return *m_clips.at(size.width()); }

    // Plays the clip of this size, and can change to another of the sizes. The clips outlive it.
    [[nodiscard]] std::unique_ptr<VideoSource> source(QSize size) const;

private:
    std::map<int, std::unique_ptr<const Clip>> m_clips; // by width
};

} // namespace pevrix
