#pragma once

#include "tools/phonesim/VideoSource.h"

#include <gtest/gtest.h>

#include <QFile>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace pevrix {

// Access units of a stream of tests/data, all of one size, the first one a keyframe.
struct Clip
{
    Clip(const char* name, QSize size_, std::size_t first = 0, std::size_t count = SIZE_MAX)
        : size(size_)
    {
        QFile file(QStringLiteral(PEVRIX_TEST_DATA "/") + QLatin1StringView(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const QByteArray content = file.readAll();
        bytes->assign(content.begin(), content.end());
        units = splitAccessUnits(*bytes);
        units.erase(units.begin(), units.begin() + static_cast<std::ptrdiff_t>(first));
        units.resize(std::min(count, units.size()));
    }

    // For a phone that sends it over and over. The clip must outlive it.
    [[nodiscard]] std::unique_ptr<VideoSource> source(int fps = 30) const
    {
        return std::make_unique<ClipSource>(StreamDescription{size.width(), size.height(), fps},
                                            units);
    }

    [[nodiscard]] QByteArrayView unit(std::size_t number) const
    {
        return {units[number].bytes.data(), std::ssize(units[number].bytes)};
    }

    QSize size;
    std::shared_ptr<std::vector<std::uint8_t>> bytes =
        std::make_shared<std::vector<std::uint8_t>>(); // where the units lie
    std::vector<AccessUnit> units;
};

} // namespace pevrix
