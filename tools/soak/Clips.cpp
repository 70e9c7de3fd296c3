#include "tools/soak/Clips.h"

#include "tools/phonesim/PatternSource_linux.h"

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

std::unique_ptr<const Clips::Clip> encoded(QSize size)
{
    auto clip = std::make_unique<Clips::Clip>();
    PatternSource source({size.width(), size.height(), Clips::kFps}, u"soak"_s);
    std::vector<std::pair<qsizetype, bool>> ends;
    for (int i = 0; i < 2 * Clips::kFps; ++i) {
        const auto unit = source.next(i, i == 0 || i == Clips::kFps);
        if (!unit) {
            break;
        }
        clip->bytes.append(reinterpret_cast<const char*>(unit->bytes.data()),
                           std::ssize(unit->bytes));
        ends.emplace_back(clip->bytes.size(), unit->keyframe);
    }
    qsizetype begin = 0;
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(clip->bytes.constData()),
                          static_cast<std::size_t>(clip->bytes.size()));
    for (const auto& [end, keyframe] : ends) {
        clip->units.push_back(
            {bytes.subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin)),
             keyframe});
        begin = end;
    }
    return clip;
}

class SwitchingSource final : public VideoSource
{
public:
    SwitchingSource(const Clips& clips, QSize size)
        : m_clips(clips)
        , m_size(size)
    {}

    [[nodiscard]] StreamDescription description() const override
    {
        return {m_size.width(), m_size.height(), Clips::kFps};
    }

    [[nodiscard]] std::optional<AccessUnit> next(qint64, bool wantKeyframe) override
    {
        const auto& units = m_clips.of(m_size).units;
        while (wantKeyframe && !units[m_next % units.size()].keyframe) {
            ++m_next;
        }
        return units[m_next++ % units.size()];
    }

    [[nodiscard]] bool resize(QSize size) override
    {
        m_size = size;
        m_next = 0;
        return true;
    }

private:
    const Clips& m_clips;
    QSize m_size;
    std::size_t m_next = 0;
};

} // namespace

Clips::Clips()
{
    for (const QSize size : kSizes) {
        m_clips[size.width()] = encoded(size);
    }
}

std::unique_ptr<VideoSource> Clips::source(QSize size) const
{
    return std::make_unique<SwitchingSource>(*this, size);
}

} // namespace pevrix
