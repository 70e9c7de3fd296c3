#include "pairing/QrImage.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace pevrix;

namespace {

constexpr QRgb kDark = qRgb(11, 14, 21);
constexpr QRgb kWhite = qRgb(255, 255, 255);

} // namespace

TEST(QrImage, IsPaintedInEightPixelModulesInsideAQuietZone)
{
    const QImage image = makeQrImage(u"pevrix://pair"_s);
    ASSERT_EQ(image.size(), QSize(232, 232)); // version 1: 21 modules
    EXPECT_EQ(image.format(), QImage::Format_RGB32);
    // The top left finder pattern, and the light ring inside it.
    EXPECT_EQ(image.pixel(32, 32), kDark);
    EXPECT_EQ(image.pixel(32 + 8, 32 + 8), kWhite);
    // The one module that is dark in every symbol, beside the lower left finder pattern; its mirror
    // image is light in this one, so columns and rows are not swapped.
    EXPECT_EQ(image.pixel(32 + 8 * 8, 32 + 8 * 13), kDark);
    EXPECT_EQ(image.pixel(32 + 8 * 13, 32 + 8 * 8), kWhite);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const bool margin = x < 32 || y < 32 || x >= 200 || y >= 200;
            const QRgb expected = margin ? kWhite : image.pixel(x / 8 * 8, y / 8 * 8);
            ASSERT_TRUE(expected == kWhite || expected == kDark);
            ASSERT_EQ(image.pixel(x, y), expected) << x << ' ' << y;
        }
    }
}

TEST(QrImage, IsEmptyWhenTheTextDoesNotFit)
{
    EXPECT_EQ(makeQrImage(QString(2331, u'a')).width(), 177 * 8 + 64); // the largest symbol
    for (const QString& text : {QString(2332, u'a'), QString(1166, u'ä'), QString(100'000, u'a'),
                                u"a"_s + QChar::Null + u'b'}) {
        EXPECT_EQ(makeQrDataUrl(text), QString());
    }
}
