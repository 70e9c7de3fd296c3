#include "tools/phonesim/PatternSource.h"

namespace pevrix {

PatternSource::PatternSource(const H264Encoder::Settings& settings, int noise)
    : m_settings(settings)
    , m_noise(noise)
{}

StreamDescription PatternSource::description() const
{
    return {m_settings.width, m_settings.height, m_settings.fps};
}

bool PatternSource::resize(int width, int height)
{
    m_settings.width = width;
    m_settings.height = height;
    m_pattern.reset(); // the next frame opens a new stream
    return true;
}

std::optional<AccessUnit> PatternSource::next(std::int64_t number, bool wantKeyframe)
{
    if (!m_pattern) {
        if (!m_encoder.open(m_settings)) {
            return std::nullopt;
        }
        m_pattern.emplace(m_settings.width, m_settings.height, m_noise);
    }
    const auto picture = m_encoder.picture();
    if (!picture) {
        return std::nullopt;
    }
    m_pattern->draw(number, *picture);
    return m_encoder.encode(wantKeyframe);
}

} // namespace pevrix
