#pragma once

#include "tools/phonesim/VideoSource.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace pevrix {

/// The H.264 video of a file, taken apart into access units once so that sending them costs no
/// reading. Immutable after loading; connections share it.
struct Clip
{
    struct Unit
    {
        QByteArray bytes; ///< Annex-B; keyframes have their parameter sets in them
        bool keyframe = false;
    };
    StreamDescription description; ///< the size of the first picture and the average rate
    std::vector<Unit> units;       ///< the first one is a keyframe
    bool reordered = false;        ///< it has B-frames, which phones never send
};

/// The most that a file may hold, since all of it is kept in memory.
inline constexpr qint64 kMaxClipBytes = 1'000'000'000;

/// Loads the first video stream of an Annex-B (.h264) or MP4 file. What comes before the first
/// keyframe is left out. Null on failure, with the reason in `error`.
[[nodiscard]] std::shared_ptr<const Clip> loadClip(const QString& path, QString& error);

/// Plays a clip over and over.
class FileSource final : public VideoSource
{
public:
    /// `fps` 0: the clip's own rate.
    FileSource(std::shared_ptr<const Clip> clip, int fps);

    [[nodiscard]] StreamDescription description() const override;

    /// Goes through the clip in order whatever `number` is, so that no frame lacks the one that it
    /// builds on. `wantKeyframe` goes forward to the next keyframe.
    [[nodiscard]] std::optional<AccessUnit> next(std::int64_t number, bool wantKeyframe) override;

    /// A file has the size that it has.
    [[nodiscard]] bool resize(int, int) override { return false; }
    [[nodiscard]] QString errorText() const override { return {}; }

private:
    std::shared_ptr<const Clip> m_clip;
    int m_fps;
    std::size_t m_position = 0;
};

} // namespace pevrix
