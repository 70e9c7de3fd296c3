#include <gmock/gmock.h>

#include <QGuiApplication>

// Every test program has a Qt application, so that event loops, sockets and images work in it.
int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
