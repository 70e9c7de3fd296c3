#include "app/WindowPlace.h"

#include <gtest/gtest.h>

using pevrix::placeOnScreens;

TEST(WindowPlace, LiesWithinTheScreenThatHoldsMostOfIt)
{
    const QRect main(0, 0, 1920, 1040);
    const QRect second(1920, 0, 1280, 984);
    const QRect left(-1600, 100, 1600, 860);
    struct
    {
        QRect wanted;
        QList<QRect> screens;
        QRect place;
    } const cases[] = {
        {{700, 200, 540, 640}, {main}, {700, 200, 540, 640}},
        {{-16, -16, 540, 640}, {main}, {-16, -16, 540, 640}},  // its shadow hangs over
        {{-100, 900, 540, 640}, {main}, {-16, 416, 540, 640}}, // half outside
        {{2500, 300, 540, 640}, {main, second}, {2500, 300, 540, 640}},
        {{2500, 300, 540, 640}, {main}, {1396, 300, 540, 640}}, // that screen is gone
        {{-1200, 200, 540, 640}, {main, second, left}, {-1200, 200, 540, 640}},
        {{1800, 100, 540, 640}, {main, second}, {1904, 100, 540, 640}},  // across two
        {{9000, 9000, 540, 640}, {main, second}, {2676, 360, 540, 640}}, // nearest
        {{100, 0, 540, 640}, {{0, 0, 780, 398}}, {100, 0, 540, 398}},    // 1366 x 768 at 175 %
        {{0, 0, 3000, 2000}, {main}, {0, 0, 1920, 1040}},
        {{100, 100, 540, 640}, {}, {100, 100, 540, 640}},
    };
    for (const auto& one : cases) {
        const QRect place = placeOnScreens(one.wanted, one.screens, 16);
        EXPECT_EQ(place, one.place)
            << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
    }
}
