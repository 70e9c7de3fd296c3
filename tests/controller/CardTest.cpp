#include "controller/Card.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QRect>
#include <QString>

#include <algorithm>
#include <cstdlib>

namespace pevrix {
namespace {

using namespace Qt::StringLiterals;

constexpr QRgb kBackground = 0xff0b0e15;
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

struct Ink
{
    QRect area;                   // the smallest around everything drawn
    QRgb strongest = kBackground; // what differs most from the background
};

// Between two rows, both included.
Ink inkBetween(const QImage& card, int top, int bottom)
{
    Ink ink;
    for (int y = std::max(top, 0); y <= std::min(bottom, card.height() - 1); ++y) {
        for (int x = 0; x < card.width(); ++x) {
            const QRgb pixel = card.pixel(x, y);
            ink.area |= pixel != kBackground ? QRect(x, y, 1, 1) : QRect();
            ink.strongest =
                std::max(ink.strongest, pixel, [](QRgb a, QRgb b) { return qGray(a) < qGray(b); });
        }
    }
    return ink;
}

int difference(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

// Rows and dot of a card around its middle, and nothing else.
void expectCard(const QImage& card, QPoint middle, QRgb dot, bool thirdLine = true)
{
    const struct
    {
        int top;
        int bottom;
        QRgb color;
        int minWidth;
        int tolerance; // thin strokes do not reach their full colour
    } rows[] = {{-96, -13, 0xffeef2f8, 100, 0},
                {16, 49, 0xff8a95a7, 150, 12},
                {54, 79, 0xff5a6576, 120, 12}};
    const int cy = middle.y();
    int free = 0; // the first row below what was looked at
    for (const auto& row : rows) {
        EXPECT_TRUE(row.top == 16 || inkBetween(card, free, cy + row.top - 1).area.isEmpty());
        if (row.top > 50 && !thirdLine) {
            break;
        }
        free = cy + row.bottom + 1;
        const Ink ink = inkBetween(card, cy + row.top, free - 1);
        EXPECT_GE(ink.area.width(), row.minWidth);
        EXPECT_NEAR(ink.area.left() + ink.area.right(), card.width() - 1, 12) << "centred";
        EXPECT_LE(difference(ink.strongest, row.color), row.tolerance);
    }
    EXPECT_TRUE(inkBetween(card, free, card.height()).area.isEmpty());
    EXPECT_EQ(inkBetween(card, cy - 12, cy + 15).area, QRect(middle.x() - 4, cy - 2, 8, 8));
    EXPECT_EQ(card.pixel(middle.x(), cy + 2), dot);
    EXPECT_EQ(card.pixel(middle.x() - 4, cy - 2), kBackground) << "round";
}

TEST(Card, PlacesItsRowsAroundTheMiddleAtEverySize)
{
    // Half the height is rounded down, as is half the width.
    for (const QSize size : {QSize(1280, 720), QSize(1920, 1080), QSize(719, 1281)}) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        const QPoint middle(size.width() / 2, size.height() / 2);
        expectCard(imageOf(drawIdleCard(size, kAddress), size), middle, kIdleDot);
        expectCard(imageOf(drawPausedCard(size), size), middle, kPausedDot);
    }
}

TEST(Card, SaysTheAddressThatThereIs)
{
    const QSize size(1280, 720);
    for (const QString& address : {QString(), u"No LAN address found"_s}) {
        expectCard(imageOf(drawIdleCard(size, address), size), {640, 360}, kIdleDot, false);
    }
    EXPECT_NE(drawIdleCard(size, kAddress), drawIdleCard(size, u"10.0.0.1:8788"_s));
    const auto width = [&](const QString& address) {
        return inkBetween(imageOf(drawIdleCard(size, address), size), 414, 439).area.width();
    };
    // In a proportional font the second is much narrower.
    EXPECT_NEAR(width(u"8888888888888888"_s), width(u"8..............8"_s), 2);
}

TEST(Card, FitsIntoTheSmallestPictureAndRefusesSizesThatAreNone)
{
    for (const QSize size : {QSize(1, 1), QSize(2, 1), QSize(17, 3)}) {
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
