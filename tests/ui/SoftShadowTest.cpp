#include "ui/SoftShadow.h"

#include <gtest/gtest.h>

using pevrix::SoftShadow;

// What Qt's own shadow effect draws around a rectangle with these values, from its edge outwards.
TEST(SoftShadow, LooksLikeABlurredRectangle)
{
    const QImage shadow = SoftShadow::draw(12, 0.7, QColor(0, 0, 0, 0x66));
    const int middle = shadow.width() / 2;
    const int edge = 35; // where the rectangle begins
    const std::vector<int> expected{43, 33, 24, 19, 15, 12, 9, 7, 6, 5, 5, 4, 3, 2, 2, 2, 2, 2, 1};
    for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
        const int place = edge - 1 - i;
        const int left = qAlpha(shadow.pixel(place, middle));
        EXPECT_NEAR(left, expected[static_cast<std::size_t>(i)], 2) << i;
        EXPECT_EQ(qAlpha(shadow.pixel(middle, shadow.height() - 1 - place)), left);
    }
    EXPECT_NEAR(qAlpha(shadow.pixel(middle, middle)), 0x66, 1);
    EXPECT_LT(qAlpha(shadow.pixel(edge, edge)), qAlpha(shadow.pixel(edge, middle)) / 3); // is round
    EXPECT_EQ(qAlpha(shadow.pixel(0, 0)), 0);
}
