#include <gmock/gmock.h>

#include <QGuiApplication>

// Every test program has a Qt application, so that event loops, sockets and images work in it.
int main(int argc, char** argv)
{
    // Also when the program is started by hand, or by the build to list its tests.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
