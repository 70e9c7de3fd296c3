#include "softcam/CameraOutlet_linux.h"
#include "softcam/PictureFormat.h"
#include "tests/softcam/Samples.h"
#include "tests/softcam/TestCamera.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

using namespace pevrix;
using namespace pevrix::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// Turning a phone, another phone, a card: each makes the camera anew in another size.
TEST(Call, GoesOnInItsOwnFormatWhileCamerasOfOtherSizesFollow)
{
    std::vector<Picture> pictures;
    for (const auto& [width, height] :
         {std::pair{320, 180}, {360, 640}, {1280, 720}, {333, 217}, {320, 180}}) {
        pictures.push_back(Picture::quadrants(width, height, static_cast<int>(pictures.size())));
    }
    const CameraFormat format = *cameraFormat(320, 180, 30);
    const auto size = static_cast<qsizetype>(pictureSize(PixelLayout::Nv12, format));
    PipeWireSession session;
    session.startDaemon();
    auto camera = std::make_unique<TestCamera>(pictures.front());
    static_cast<void>(session.waitForCamera(320));
    Reader reader(camera->picture(), u"NV12"_s, 0);
    ASSERT_TRUE(waitUntil([&] { return camera->isConnected(); }));

    QElapsedTimer clock;
    clock.start();
    for (const Picture& picture : pictures) {
        camera.reset(); // the former one ends before the next is made
        camera = std::make_unique<TestCamera>(picture);
        const qint64 enough = reader.writtenBytes() + 20 * size;
        ASSERT_TRUE(waitUntil([&] { return reader.writtenBytes() > enough; }));
        EXPECT_TRUE(camera->isConnected());
    }
    const auto seconds = static_cast<double>(clock.elapsed()) / 1000;
    reader.kill();
    const QByteArray seen = reader.written();
    EXPECT_LT(static_cast<double>(seen.size() / size), 31 * seconds + 10) << "the sender's rate";

    // Every picture is whole and shows the same camera as the one before, or the next one.
    std::size_t number = 0;
    std::vector<int> shown(pictures.size());
    for (qsizetype at = 0; at + size <= seen.size(); at += size) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(seen.constData() + at);
        while (number < pictures.size() &&
               wrongPlaces(bytes, PixelLayout::Nv12, format, pictures[number]) > 0) {
            ++number;
        }
        ASSERT_LT(number, pictures.size()) << "picture " << at / size;
        ++shown[number];
    }
    EXPECT_THAT(shown, testing::Each(testing::Gt(5)));

    // Now that nobody reads, the offer follows, in the same node: four layouts, each also in any
    // other size that is asked for.
    camera.reset();
    camera = std::make_unique<TestCamera>(pictures[1]);
    const QJsonObject node = session.waitForCamera(360);
    EXPECT_EQ(node["params"_L1]["EnumFormat"_L1].toArray().size(), 4 + 4);
    Reader again(pictures.front(), u"NV12"_s, 0);
    EXPECT_TRUE(waitUntil([&] { return camera->isConnected(); }));
}

TEST(Call, GoesOnWhenACameraComesBackInTimeAndEndsWhenNoneDoes)
{
    constexpr auto kGrace = 1s;
    PipeWireSession session;
    session.startDaemon();
    CameraOutlet outlet(kGrace);
    outlet.open(*cameraFormat(320, 180, 30));
    static_cast<void>(session.waitForCamera(320));
    Reader reader(Picture::quadrants(320, 180), u"YUY2"_s, 0);
    ASSERT_TRUE(waitUntil([&] { return outlet.isConnected(); }));

    const auto closed = std::chrono::steady_clock::now();
    outlet.close();
    std::this_thread::sleep_for(50ms); // the outlet's thread takes note
    outlet.open(*cameraFormat(640, 480, 30));
    const bool inTime = std::chrono::steady_clock::now() - closed < kGrace;
    std::this_thread::sleep_for(kGrace * 5 / 4);
    EXPECT_TRUE(outlet.isConnected() || !inTime);
    outlet.close();
    EXPECT_TRUE(waitUntil([&] { return session.camera().isEmpty(); }));
}
