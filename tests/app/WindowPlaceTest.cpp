#include "app/WindowPlace.h"

#include "tools/doubles/WaitUntil.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;
using pevrix::placeOnScreens;
using pevrix::Settings;
using pevrix::WindowPlace;

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

TEST(WindowPlace, IsRememberedWithTheMaximisedState)
{
    const QTemporaryDir folder;
    Settings settings(folder.filePath(u"settings.ini"_s));
    EXPECT_TRUE(WindowPlace(settings).initialProperties(false).isEmpty());
    {
        WindowPlace place(settings);
        QWindow window;
        window.setGeometry(20, 30, 500, 600);
        window.show();
        place.follow(window);
        window.resize(520, 610);
        EXPECT_TRUE(pevrix::waitUntil([&] { return settings.windowState().geometry.isValid(); }));
        window.showMaximized();
        EXPECT_TRUE(pevrix::waitUntil([&] { return settings.windowState().maximized; }));
    }
    const QVariantMap properties = WindowPlace(settings).initialProperties(false);
    EXPECT_EQ(QRect(properties[u"x"_s].toInt(), properties[u"y"_s].toInt(),
                    properties[u"width"_s].toInt(), properties[u"height"_s].toInt()),
              QRect(20, 30, 520, 610));
    EXPECT_EQ(properties[u"visibility"_s].value<QWindow::Visibility>(), QWindow::Maximized);
    EXPECT_EQ(WindowPlace(settings).initialProperties(true)[u"visible"_s], QVariant(false));
}
