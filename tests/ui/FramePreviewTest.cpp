#include "ui/FramePreview.h"

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

using pevrix::FramePreview;

namespace {

QImage picture(int width, int height, QColor color = Qt::red)
{
    QImage image(width, height, QImage::Format_BGR888);
    image.fill(color);
    return image;
}

} // namespace

TEST(FramePreview, FitsThePictureCentredIntoTheItem)
{
    struct
    {
        QSizeF item;
        QSize picture;
        QRectF expected;
    } const cases[] = {
        {{508, 400}, {1080, 1920}, {141.5, 0, 225, 400}}, // portrait: bars at the sides
        {{400, 400}, {1280, 720}, {0, 87.5, 400, 225}},   // landscape: bars above and below
        {{640, 360}, {1280, 720}, {0, 0, 640, 360}},      // the same shape
        {{640, 360}, {16, 9}, {0, 0, 640, 360}},          // scaled up as well
        {{640, 360}, {0, 0}, {0, 0, 640, 360}},           // nothing to fit
        {{0, 360}, {16, 9}, {0, 0, 0, 360}},              // nowhere to fit it
    };
    for (const auto& [item, picture, expected] : cases) {
        EXPECT_EQ(FramePreview::aspectFit(item, picture), expected) << expected.width();
    }
}

TEST(FramePreview, TellsOfChangesOnlyWhenSomethingChanged)
{
    FramePreview preview;
    EXPECT_TRUE(preview.frameSize().isEmpty());
    preview.setSize({508, 400});
    EXPECT_EQ(preview.contentRect(), QRectF(0, 0, 508, 400));
    QSignalSpy sizes(&preview, &FramePreview::frameSizeChanged);
    QSignalSpy rects(&preview, &FramePreview::contentRectChanged);

    preview.setFrame(picture(1080, 1920));
    preview.setFrame(picture(1080, 1920, Qt::blue));
    EXPECT_EQ(sizes.count(), 1);
    EXPECT_EQ(rects.count(), 1);
    EXPECT_EQ(preview.contentRect(), QRectF(141.5, 0, 225, 400));

    preview.setPosition({10, 20}); // a move changes nothing inside the item
    EXPECT_EQ(rects.count(), 1);

    preview.setSize({1080, 1920});
    EXPECT_EQ(rects.count(), 2);
    EXPECT_EQ(sizes.count(), 1);

    preview.setFrame(picture(540, 960)); // another size that fits the same rectangle
    EXPECT_EQ(sizes.count(), 2);
    EXPECT_EQ(rects.count(), 2);
}

// Drawn for real, by the software scene graph.
TEST(FramePreview, DrawsEachLatestPictureAndKeepsItWhenANullOneComes)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickWindow window;
    window.setColor(Qt::white);
    window.resize(200, 100);
    FramePreview preview(window.contentItem());
    preview.setSize({200, 100});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, 20000));
    EXPECT_EQ(window.grabWindow().pixelColor(100, 50), QColor(Qt::white)); // nothing drawn yet

    preview.setFrame(picture(50, 50, Qt::green));
    preview.setFrame(picture(50, 50, Qt::blue));
    const QImage shown = window.grabWindow();
    EXPECT_EQ(shown.pixelColor(100, 50), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(20, 50), QColor(Qt::white)); // the bar beside it

    preview.setFrame(picture(50, 50, Qt::red));
    EXPECT_EQ(window.grabWindow().pixelColor(100, 50), QColor(Qt::red)); // after one was drawn

    preview.setFrame(QImage());
    EXPECT_EQ(window.grabWindow().pixelColor(100, 50), QColor(Qt::red));
}
