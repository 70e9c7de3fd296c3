#include "controller/Card.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QRect>
#include <QString>

#include <algorithm>

namespace pevrix {
namespace {

using namespace Qt::StringLiterals;

constexpr QRgb kBackground = 0xff0b0e15;
constexpr QRgb kTitle = 0xffeef2f8;
constexpr QRgb kSecondLine = 0xff8a95a7;
constexpr QRgb kThirdLine = 0xff5a6576;
constexpr QRgb kIdleDot = 0xff22d0c1;
constexpr QRgb kPausedDot = 0xfff5a623;

const QString kAddress = u"192.168.178.23:8788"_s;

QImage imageOf(const std::vector<std::uint8_t>& pixels, QSize size)
{
    EXPECT_EQ(pixels.size(), static_cast<std::size_t>(size.width() * size.height() * 3));
    const QImage view(pixels.data(), size.width(), size.height(), size.width() * 3,
                      QImage::Format_BGR888);
    return view.copy();
}

// The smallest rectangle around everything drawn between two rows, both included.
QRect inkBetween(const QImage& card, int top, int bottom)
{
    QRect ink;
    for (int y = std::max(top, 0); y <= std::min(bottom, card.height() - 1); ++y) {
        for (int x = 0; x < card.width(); ++x) {
            if (card.pixel(x, y) != kBackground) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

// The pixel that differs most from the background; in a wide enough stroke, the colour of the ink.
QRgb strongest(const QImage& card, const QRect& area)
{
    QRgb found = kBackground;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = card.pixel(x, y);
            if (qGray(pixel) > qGray(found)) {
                found = pixel;
            }
        }
    }
    return found;
}

void expectNear(QRgb actual, QRgb expected, int tolerance)
{
    EXPECT_NEAR(qRed(actual), qRed(expected), tolerance);
    EXPECT_NEAR(qGreen(actual), qGreen(expected), tolerance);
    EXPECT_NEAR(qBlue(actual), qBlue(expected), tolerance);
}

struct Row
{
    int top;
    int bottom;
    QRgb color;
    int minWidth;
    int tolerance; // thin strokes do not reach their full colour
};

// Rows of a card whose height's half is `cy`.
void expectRows(const QImage& card, int cy, bool thirdLine)
{
    const Row rows[] = {{cy - 96, cy - 13, kTitle, 100, 0},
                        {cy + 16, cy + 49, kSecondLine, 150, 12},
                        {cy + 54, cy + 79, kThirdLine, 120, 12}};
    const int count = thirdLine ? 3 : 2;
    for (int i = 0; i < count; ++i) {
        SCOPED_TRACE(i);
        const Row& row = rows[i];
        const QRect ink = inkBetween(card, row.top, row.bottom);
        EXPECT_GE(ink.width(), row.minWidth);
        EXPECT_NEAR(ink.left() + ink.right(), card.width() - 1, 12) << "centred";
        expectNear(strongest(card, ink), row.color, row.tolerance);
    }
    // Nothing lies outside the rows and the dot.
    EXPECT_TRUE(inkBetween(card, 0, cy - 97).isEmpty());
    EXPECT_TRUE(inkBetween(card, cy - 12, cy - 3).isEmpty());
    EXPECT_TRUE(inkBetween(card, cy + 6, cy + 15).isEmpty());
    EXPECT_TRUE(inkBetween(card, cy + 50, cy + 53).isEmpty());
    EXPECT_TRUE(inkBetween(card, cy + (thirdLine ? 80 : 50), card.height()).isEmpty());
}

void expectDot(const QImage& card, int cx, int cy, QRgb color)
{
    EXPECT_EQ(inkBetween(card, cy - 12, cy + 15), QRect(cx - 4, cy - 2, 8, 8));
    EXPECT_EQ(card.pixel(cx, cy + 2), color);
    EXPECT_EQ(card.pixel(cx - 4, cy - 2), kBackground) << "round";
}

TEST(Card, PlacesItsRowsAroundTheMiddleAtEverySize)
{
    // Half the height is rounded down, as is half the width.
    const struct
    {
        QSize size;
        int cx;
        int cy;
    } cases[] = {{{1280, 720}, 640, 360},
                 {{1280, 721}, 640, 360},
                 {{1920, 1080}, 960, 540},
                 {{719, 1281}, 359, 640}};
    for (const auto& [size, cx, cy] : cases) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        const QImage idle = imageOf(drawIdleCard(size, kAddress), size);
        expectRows(idle, cy, true);
        expectDot(idle, cx, cy, kIdleDot);
        const QImage paused = imageOf(drawPausedCard(size), size);
        expectRows(paused, cy, true);
        expectDot(paused, cx, cy, kPausedDot);
    }
}

TEST(Card, LeavesOutAnAddressThatDoesNotExist)
{
    const QSize size(1280, 720);
    for (const QString& address : {QString(), u"No LAN address found"_s}) {
        expectRows(imageOf(drawIdleCard(size, address), size), 360, false);
    }
    EXPECT_NE(drawIdleCard(size, kAddress), drawIdleCard(size, u"10.0.0.1:8788"_s));
}

TEST(Card, SpacesTheAddressEvenly)
{
    const QSize size(1280, 720);
    const auto width = [&](const QString& address) {
        return inkBetween(imageOf(drawIdleCard(size, address), size), 414, 439).width();
    };
    // In a proportional font the second is much narrower.
    EXPECT_NEAR(width(u"8888888888888888"_s), width(u"8..............8"_s), 2);
}

TEST(Card, FitsIntoTheSmallestPictureAndRefusesSizesThatAreNone)
{
    for (const QSize size : {QSize(1, 1), QSize(2, 1), QSize(16, 16), QSize(17, 3)}) {
        imageOf(drawIdleCard(size, kAddress), size);
        imageOf(drawPausedCard(size), size);
    }
    const QImage tiny = imageOf(drawIdleCard({16, 16}, kAddress), {16, 16});
    EXPECT_EQ(tiny.pixel(8, 10), kIdleDot);
    for (const QSize size : {QSize(), QSize(0, 720), QSize(-5, -5), QSize(100'000, 100'000)}) {
        EXPECT_TRUE(drawPausedCard(size).empty());
    }
}

} // namespace
} // namespace pevrix
