#pragma once

#include "tools/phonesim/H264Encoder.h"
#include "tools/phonesim/Pattern.h"
#include "tools/phonesim/VideoSource.h"

#include <optional>

namespace pevrix {

/// The generated moving picture, encoded live. The encoder starts with the first frame.
class PatternSource final : public VideoSource
{
public:
    PatternSource(const H264Encoder::Settings& settings, int noise);

    [[nodiscard]] StreamDescription description() const override;
    [[nodiscard]] std::optional<AccessUnit> next(std::int64_t number, bool wantKeyframe) override;
    [[nodiscard]] bool resize(int width, int height) override;
    [[nodiscard]] QString errorText() const override { return m_encoder.errorText(); }

private:
    H264Encoder::Settings m_settings;
    int m_noise;
    H264Encoder m_encoder;
    std::optional<Pattern> m_pattern;
};

} // namespace pevrix
