#include "softcam/PictureFormat.h"
#include "tests/softcam/Samples.h"
#include "tests/softcam/TestCamera.h"

#include <memory>
#include <vector>

using namespace pevrix;
using namespace pevrix::test;
using namespace Qt::StringLiterals;

namespace {

// What a reader of NV12 pictures wrote to a file, one after the other.
class Footage
{
public:
    Footage(QByteArray bytes, const CameraFormat& format)
        : m_bytes(std::move(bytes))
        , m_format(format)
        , m_size(static_cast<qsizetype>(pictureSize(PixelLayout::Nv12, format)))
    {}

    [[nodiscard]] qsizetype count() const { return m_bytes.size() / m_size; }

    // The first picture from `from` on that shows `picture`; count() when there is none.
    [[nodiscard]] qsizetype find(const Picture& picture, qsizetype from) const
    {
        while (from < count() && !shows(picture, from)) {
            ++from;
        }
        return from;
    }
    [[nodiscard]] bool shows(const Picture& picture, qsizetype number) const
    {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(m_bytes.data());
        return wrongPlaces(bytes + number * m_size, PixelLayout::Nv12, m_format, picture) == 0;
    }

private:
    QByteArray m_bytes;
    CameraFormat m_format;
    qsizetype m_size;
};

QJsonArray offeredSizes(const QJsonObject& camera)
{
    return camera["params"_L1]["EnumFormat"_L1].toArray();
}

} // namespace

// Turning a phone, another phone, a card: each makes the camera anew in another size.
TEST(Call, GoesOnInItsOwnFormatWhileCamerasOfOtherSizesFollow)
{
    std::vector<Picture> pictures;
    for (const auto& [width, height] :
         {std::pair{640, 360}, {720, 1280}, {640, 480}, {1920, 1080}, {333, 217}, {640, 360}}) {
        pictures.push_back(Picture::quadrants(width, height, static_cast<int>(pictures.size())));
    }
    PipeWireSession session;
    session.startDaemon();
    auto camera = std::make_unique<TestCamera>(pictures.front());
    static_cast<void>(session.waitForCamera(640));
    Reader reader(*camera, u"NV12"_s, 0);
    ASSERT_TRUE(waitUntil([&] { return camera->isConnected(); }));

    constexpr auto kStay = std::chrono::milliseconds(1000);
    QElapsedTimer clock;
    clock.start();
    for (const Picture& picture : pictures) {
        camera.reset(); // the former one ends before the next is made
        camera = std::make_unique<TestCamera>(picture);
        std::this_thread::sleep_for(kStay);
        EXPECT_TRUE(camera->isConnected());
    }
    const auto seconds = static_cast<double>(clock.elapsed()) / 1000;
    reader.kill();
    const Footage seen(reader.written(), *cameraFormat(640, 360, 30));

    qsizetype at = 0;
    for (const Picture& picture : pictures) {
        at = seen.find(picture, at);
        ASSERT_LT(at, seen.count()) << picture.width() << "x" << picture.height();
        qsizetype shown = 0;
        for (; at < seen.count() && seen.shows(picture, at); ++at) {
            ++shown;
        }
        EXPECT_GT(shown, 10) << picture.width() << "x" << picture.height();
    }
    EXPECT_EQ(at, seen.count()) << "a picture in between shows anything else";
    // The sender's rate is three times the reader's; a slow machine may lose some.
    EXPECT_NEAR(static_cast<double>(seen.count()), 30 * seconds, 6 * seconds + 10);

    // Now that nobody reads, the offer follows, in the same node. Another size is there for the
    // asking.
    camera.reset();
    camera = std::make_unique<TestCamera>(pictures[1]);
    EXPECT_EQ(offeredSizes(session.waitForCamera(720)).size(), 4 + 4);
    Reader again(pictures.front(), u"NV12"_s, 0);
    EXPECT_TRUE(waitUntil([&] { return camera->isConnected(); }));
}

TEST(Call, EndsWhenNoCameraComesBack)
{
    const auto live = std::make_unique<LiveCamera>();
    Reader reader(live->camera, u"YUY2"_s, 0);
    ASSERT_TRUE(waitUntil([&] { return live->camera.isConnected(); }));
    live->camera.stop();
    EXPECT_FALSE(live->session.camera().isEmpty());
    EXPECT_TRUE(waitUntil([&] { return live->session.camera().isEmpty(); }));
}
