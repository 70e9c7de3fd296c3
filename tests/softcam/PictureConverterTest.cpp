#include "softcam/PictureConverter.h"

#include "tests/softcam/Samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <utility>
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
class Scaling : public testing::TestWithParam<Sizes>
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
            converter.convert(next->bgr(), std::span(converted).first(size));
        }
        EXPECT_EQ(wrongPlaces(converted.data(), layout, reader, picture), 0)
            << "layout " << static_cast<int>(layout);
        EXPECT_EQ(converted.back(), kGuard);

        CameraFormat memory = reader;
        memory.width += 16;
        std::vector<std::uint8_t> wide(pictureSize(layout, memory) + 1, kGuard);
        copyToWiderRows(layout, reader, memory.width, converted.data(), wide.data());
        for (const auto& [x, y] : {std::pair(0, 0), std::pair(readerWidth - 1, readerHeight - 1),
                                   std::pair(readerWidth / 3, readerHeight / 2)}) {
            EXPECT_EQ(samplesAt(wide.data(), layout, memory, x, y),
                      samplesAt(converted.data(), layout, reader, x, y));
        }
        EXPECT_EQ(wide.back(), kGuard);
    }
}

// A tinge that comes and goes with the phone's turns would be seen.
TEST_P(Scaling, LeavesFlatColoursAsTheyAre)
{
    const auto [width, height, readerWidth, readerHeight] = GetParam();
    const CameraFormat reader = *cameraFormat(readerWidth, readerHeight, 30);
    const PixelLayout layout = PixelLayout::Nv12;
    for (const Color& color : {Color{40, 60, 200}, Color{255, 255, 255}, Color{255, 0, 0}}) {
        PictureConverter converter(layout, reader);
        std::vector<std::uint8_t> converted(pictureSize(layout, reader));
        // In the middle of a flat picture: the mean over an area, for scaling may dither by one.
        const auto middle = [&](const Picture& picture) {
            converter.convert(picture.bgr(), converted);
            std::array<double, 3> means{};
            for (int i = 0; i < 32 * 32; ++i) {
                const Samples samples =
                    samplesAt(converted.data(), layout, reader, readerWidth / 2 + i % 32,
                              readerHeight / 2 + i / 32);
                for (std::size_t plane = 0; plane < means.size(); ++plane) {
                    means[plane] += samples[plane] / 1024.0;
                }
            }
            return means;
        };
        const auto scaled = middle(Picture::flat(width, height, color));
        const auto unscaled = middle(Picture::flat(readerWidth, readerHeight, color));
        for (std::size_t plane = 0; plane < scaled.size(); ++plane) {
            EXPECT_NEAR(scaled[plane], unscaled[plane], 0.5) << "plane " << plane;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pictures, Conversions,
                         testing::Values(Sizes{640, 360, 640, 360}, Sizes{333, 217, 333, 217},
                                         Sizes{1280, 720, 640, 360}, Sizes{720, 1280, 1280, 720},
                                         Sizes{640, 480, 1280, 720}, Sizes{333, 217, 640, 480},
                                         Sizes{720, 1280, 640, 480}, Sizes{1920, 1080, 640, 360},
                                         Sizes{1920, 1080, 720, 1280}, Sizes{1280, 720, 333, 217},
                                         Sizes{8192, 2, 640, 480}, Sizes{1, 8192, 640, 480},
                                         Sizes{2, 2, 2, 8192}));

INSTANTIATE_TEST_SUITE_P(Pictures, Scaling,
                         testing::Values(Sizes{720, 1280, 640, 480}, Sizes{1920, 1080, 640, 360},
                                         Sizes{1920, 1080, 720, 1280}, Sizes{333, 217, 640, 480}));
