#pragma once

#include "phone/Protocol.h"
#include "tools/doubles/AnnexB.h"

#include <QByteArray>
#include <QSize>

#include <optional>
#include <utility>
#include <vector>

namespace pevrix {

// Where a simulated phone's video comes from. Used from one thread.
class VideoSource
{
public:
    VideoSource() = default;
    VideoSource(const VideoSource&) = delete;
    VideoSource& operator=(const VideoSource&) = delete;
    virtual ~VideoSource() = default;

    [[nodiscard]] virtual StreamDescription description() const = 0;

    // The access unit of frame `number`, which rises from call to call; valid until the next call.
    // With `wantKeyframe` it is a keyframe. Every keyframe carries its parameter sets. Nothing on
    // failure.
    [[nodiscard]] virtual std::optional<AccessUnit> next(qint64 number, bool wantKeyframe) = 0;

    // Goes on with another picture size, beginning with a keyframe. False when the source cannot.
    [[nodiscard]] virtual bool resize(QSize) { return false; }

    // A JPEG of the picture for the PC's list of phones; empty when there is none.
    [[nodiscard]] virtual QByteArray thumbnail() { return {}; }
};

// Plays encoded pictures over and over, in order whatever their numbers are, so that none lacks
// the one that it builds on. The bytes belong to others and outlive it; the first unit is a
// keyframe with its parameter sets.
class ClipSource : public VideoSource
{
public:
    ClipSource(const StreamDescription& stream, std::vector<AccessUnit> units)
        : m_stream(stream)
        , m_units(std::move(units))
    {}

    [[nodiscard]] StreamDescription description() const override { return m_stream; }

    [[nodiscard]] std::optional<AccessUnit> next(qint64, bool wantKeyframe) override
    {
        while (wantKeyframe && !m_units[m_next % m_units.size()].keyframe) {
            ++m_next;
        }
        return m_units[m_next++ % m_units.size()];
    }

private:
    const StreamDescription m_stream;
    const std::vector<AccessUnit> m_units;
    std::size_t m_next = 0;
};

} // namespace pevrix
