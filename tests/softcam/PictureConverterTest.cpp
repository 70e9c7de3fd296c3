#include "softcam/PictureConverter.h"

#include "tests/softcam/Samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

using namespace pevrix;
using namespace pevrix::test;

namespace {

struct Sizes
{
    int width;
    int height;
    int readerWidth;
    int readerHeight;

    friend void PrintTo(const Sizes& sizes, std::ostream* out)
    {
        *out << sizes.width << 'x' << sizes.height << " for a reader of " << sizes.readerWidth
             << 'x' << sizes.readerHeight;
    }
};

class Conversions : public testing::TestWithParam<Sizes>
{};

} // namespace

TEST_P(Conversions, KeepColoursAndProportionsBetweenBlackBars)
{
    const auto [width, height, readerWidth, readerHeight] = GetParam();
    const CameraFormat reader = *cameraFormat(readerWidth, readerHeight, 30);
    const Picture picture = Picture::quadrants(width, height);
    for (const PixelLayout layout : {PixelLayout::Bgr, PixelLayout::BgrBottomUp, PixelLayout::Yuy2,
                                     PixelLayout::Nv12, PixelLayout::I420}) {
        if (!suits(layout, reader)) {
            continue;
        }
        PictureConverter converter(layout, reader);
        const std::size_t size = pictureSize(layout, reader);
        constexpr std::uint8_t kGuard = 0xa5;
        std::vector<std::uint8_t> converted(size + 1, kGuard);
        // The picture in between leaves its traces, were anything of it kept.
        const Picture other = Picture::quadrants(height, width, 9);
        for (const Picture* next : {&picture, &other, &picture}) {
            converter.convert({next->bytes(), static_cast<std::uint32_t>(next->width()),
                               static_cast<std::uint32_t>(next->height())},
                              std::span(converted).first(size));
        }
        EXPECT_EQ(wrongPlaces(converted.data(), layout, reader, picture), 0)
            << "layout " << static_cast<int>(layout);
        EXPECT_EQ(converted.back(), kGuard);
    }
}

INSTANTIATE_TEST_SUITE_P(Pictures, Conversions,
                         testing::Values(Sizes{640, 360, 640, 360}, Sizes{333, 217, 333, 217},
                                         Sizes{1280, 720, 640, 360}, Sizes{720, 1280, 1280, 720},
                                         Sizes{640, 480, 1280, 720}, Sizes{333, 217, 640, 480},
                                         Sizes{1920, 1080, 720, 1280}, Sizes{1280, 720, 333, 217},
                                         Sizes{8192, 2, 640, 480}, Sizes{1, 8192, 640, 480},
                                         Sizes{2, 2, 2, 8192}));
