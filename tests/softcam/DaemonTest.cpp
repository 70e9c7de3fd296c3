#include "tests/softcam/TestCamera.h"
#include "tools/doubles/ThisProcess.h"

#include <QThread>

#include <csignal>
#include <optional>

using namespace pevrix;
using namespace pevrix::test;
using namespace Qt::StringLiterals;

namespace {

void expectPictures(const TestCamera& camera)
{
    constexpr int kPictures = 5;
    Reader reader(camera.picture(), u"YUY2"_s, kPictures);
    const Picture& picture = camera.picture();
    EXPECT_FALSE(reader.wait(kPictures, picture.width() * picture.height() * 2).isEmpty());
}

void expectTakesMorePictures(const TestCamera& camera)
{
    const int before = camera.sent();
    EXPECT_TRUE(waitUntil([&] { return camera.sent() > before + 50; })) << "held up";
}

} // namespace

TEST(CameraAndDaemon, IsConnectedWhileAProgramReadsAndServesTheNextOneWhateverThatOneWants)
{
    const LiveCamera live;
    const TestCamera& camera = live.camera;
    EXPECT_FALSE(camera.isConnected());
    for (int i = 0; i < 2; ++i) {
        Reader reader(camera.picture(), u"NV12"_s, 0);
        EXPECT_TRUE(waitUntil([&] { return camera.isConnected(); }));
        reader.kill(); // without a goodbye
        EXPECT_TRUE(waitUntil([&] { return !camera.isConnected(); }));
    }
    Reader reader(camera.picture(), u"RGBA"_s, 1);
    const int before = camera.sent();
    static_cast<void>(waitUntil([&] { return camera.sent() > before + 100; }));
    reader.kill();
    expectPictures(camera);
}

TEST(CameraAndDaemon, AppearsWhenTheDaemonDoesAndAgainAfterItsRestart)
{
    PipeWireSession session;
    const TestCamera camera;
    expectTakesMorePictures(camera);
    for (int start = 0; start < 2; ++start) {
        session.startDaemon();
        static_cast<void>(session.waitForCamera(camera.picture().width()));
        expectPictures(camera);
        Reader reader(camera.picture(), u"I420"_s, 0);
        EXPECT_TRUE(waitUntil([&] { return camera.isConnected(); }));
        session.killDaemon();
        EXPECT_TRUE(waitUntil([&] { return !camera.isConnected(); }));
    }
}

TEST(CameraAndDaemon, HangingOnesHoldNobodyUp)
{
    PipeWireSession session;
    session.startDaemon();
    std::optional<TestCamera> camera(std::in_place);
    static_cast<void>(session.waitForCamera(camera->picture().width()));
    Reader reader(camera->picture(), u"BGR"_s, 0);
    ASSERT_TRUE(waitUntil([&] { return camera->isConnected(); }));

    ::kill(static_cast<pid_t>(reader.processId()), SIGSTOP);
    expectTakesMorePictures(*camera);
    ::kill(static_cast<pid_t>(session.daemonId()), SIGSTOP);
    expectTakesMorePictures(*camera);
    camera.emplace(); // deletes the old one and makes another
    expectTakesMorePictures(*camera);
    camera.reset();
}

TEST(CameraAndDaemon, CamerasThatComeAndGoLeaveNothingBehind)
{
    PipeWireSession session;
    session.startDaemon();
    const Picture picture = Picture::quadrants(640, 360);
    const auto cycle = [&](int stayMs) {
        const scCamera camera = scCreateCamera(picture.width(), picture.height(), 30);
        QThread::msleep(static_cast<unsigned long>(stayMs));
        scSendFrame(camera, picture.bytes());
        scDeleteCamera(camera);
    };
    cycle(5);
    const int files = openHandles();
    const int threads = runningThreads();
    for (int i = 0; i < 200; ++i) {
        if (i == 150) {
            session.killDaemon();
        }
        cycle(i % 5); // deleted at another stage of its coming up each time
    }
    // A thread that was joined may be listed for a moment.
    EXPECT_TRUE(waitUntil([&] { return runningThreads() == threads; })) << runningThreads();
    // The daemon's pipes were open when the files were counted.
    EXPECT_LE(openHandles(), files);
}
