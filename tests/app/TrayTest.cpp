#include "app/Tray.h"

#include "app/HiddenWindow.h"
#include "tools/doubles/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QSignalSpy>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;
using pevrix::Tray;
using pevrix::TrayState;

namespace {

const QColor kGreen(0x22, 0xc5, 0x5e);
const QColor kRed(0xef, 0x44, 0x44);

// The middle of the dot, where the plain icon shows its own background.
QColor dotOf(Tray& tray)
{
    const QImage picture = tray.icon().icon().pixmap(QSize(32, 32), 1.0).toImage();
    EXPECT_EQ(picture.size(), QSize(32, 32));
    return picture.pixelColor(24, 24);
}

QAction* actionOf(Tray& tray, int index)
{
    return tray.icon().contextMenu()->actions().value(index);
}

} // namespace

TEST(Tray, TellsOfLiveVideoAndOfACameraInUse)
{
    Tray tray;
    const QColor plain = dotOf(tray);
    EXPECT_NE(plain, kGreen);
    EXPECT_EQ(tray.icon().toolTip(), u"Pevrix"_s);
    EXPECT_FALSE(actionOf(tray, 2)->isEnabled());

    tray.setState({.live = true});
    EXPECT_EQ(dotOf(tray), kGreen);
    EXPECT_TRUE(actionOf(tray, 2)->isEnabled());
    EXPECT_EQ(actionOf(tray, 2)->text(), u"Pause"_s);

    tray.setState({.inUse = true, .live = true, .outputEnabled = false});
    EXPECT_EQ(actionOf(tray, 2)->text(), u"Resume"_s);
    EXPECT_EQ(tray.icon().toolTip(), u"Pevrix - in use by an app"_s);
    EXPECT_EQ(dotOf(tray), kGreen); // the blinking begins with the base icon
    EXPECT_TRUE(pevrix::waitUntil([&] { return dotOf(tray) == kRed; }));
    EXPECT_TRUE(pevrix::waitUntil([&] { return dotOf(tray) == kGreen; }));
    EXPECT_TRUE(pevrix::waitUntil([&] { return dotOf(tray) == kRed; }));

    tray.setState({}); // in the red phase
    EXPECT_EQ(dotOf(tray), plain);
    EXPECT_EQ(tray.icon().toolTip(), u"Pevrix"_s);
    EXPECT_FALSE(actionOf(tray, 2)->isEnabled());
}

TEST(Tray, DrawsASignForEachSizeThatIsAskedFor)
{
    Tray tray;
    const QIcon plain = tray.icon().icon();
    tray.setState({.live = true});
    for (const int side : {16, 20, 24, 32}) {
        const QSize size(side, side);
        if (side < 32) {
            const auto format = QImage::Format_ARGB32_Premultiplied;
            EXPECT_EQ(
                plain.pixmap(size, 1.0).toImage().convertToFormat(format),
                QImage(u":/assets/icons/app-icon-%1.png"_s.arg(side)).convertToFormat(format));
        }
        const QImage picture = tray.icon().icon().pixmap(size, 1.0).toImage();
        EXPECT_EQ(picture.size(), size);
        EXPECT_EQ(picture.pixelColor(side * 3 / 4, side * 3 / 4), kGreen) << side;
    }
}

TEST(Tray, MenuIsReadableOnADarkDesktop)
{
    QPalette dark;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(role, Qt::white);
    }
    const QPalette usual = QApplication::palette();
    QApplication::setPalette(dark);
    Tray tray;
    QMenu& menu = *tray.icon().contextMenu();
    menu.setFont(QFont(u"Open Sans"_s));
    menu.ensurePolished();
    const QRect row = menu.actionGeometry(actionOf(tray, 0));
    const QImage picture = menu.grab(row).toImage();
    QApplication::setPalette(usual);
    int darkest = 255;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            darkest = std::min(darkest, qGray(picture.pixel(x, y)));
        }
    }
    EXPECT_LT(darkest, 80); // of text on white
}

TEST(HiddenWindow, ComesBackOnceTheTrayIsGoneForGood)
{
    QWindow window;
    const int left = 3; // how often the tray is there yet
    int asked = 0;
    pevrix::HiddenWindow hidden(
        window, [&] { return ++asked <= left; }, std::chrono::milliseconds(1));
    QSignalSpy lost(&hidden, &pevrix::HiddenWindow::lost);
    EXPECT_TRUE(pevrix::waitUntil([&] { return !lost.empty(); }));
    EXPECT_GE(asked, left + 2); // its system may be starting it anew
    window.show();
    asked = 0;
    pevrix::letEventsRunFor(std::chrono::milliseconds(20));
    EXPECT_EQ(asked, 0);
}

// Menus need the application object of widgets.
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
