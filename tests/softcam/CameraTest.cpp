#include "softcam/V4l2Output.h"
#include "tests/softcam/Samples.h"
#include "tests/softcam/TestCamera.h"

#include <cstring>
#include <limits>
#include <tuple>
#include <unistd.h>

using namespace pevrix;
using namespace pevrix::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 8;

const std::uint8_t* bytesOf(const QByteArray& bytes)
{
    return reinterpret_cast<const std::uint8_t*>(bytes.constData());
}

// What the node offers in plain values, as "FORMAT RATE" in order.
QStringList offered(const QJsonObject& camera)
{
    QStringList list;
    for (const auto& entry : camera["params"_L1]["EnumFormat"_L1].toArray()) {
        // Browsers skip an entry in which these are choices, which are objects with other keys.
        if (!entry["format"_L1].isString() || !entry["size"_L1]["width"_L1].isDouble()) {
            continue;
        }
        const auto rate = entry["framerate"_L1];
        list += u"%1 %2/%3"_s.arg(entry["format"_L1].toString())
                    .arg(rate["num"_L1].toInt())
                    .arg(rate["denom"_L1].toInt());
    }
    return list;
}

} // namespace

TEST(Camera, ShowsThePicturesInTheRightColours)
{
    const LiveCamera live;
    const CameraFormat format = *cameraFormat(640, 360, 30);
    for (const auto& [name, layout] : {std::pair{u"YUY2"_s, PixelLayout::Yuy2},
                                       {u"NV12"_s, PixelLayout::Nv12},
                                       {u"I420"_s, PixelLayout::I420}}) {
        Reader reader(live.camera.picture(), name, kPictures);
        const auto size = static_cast<qsizetype>(pictureSize(layout, format));
        const QByteArray pictures = reader.wait(kPictures, size);
        ASSERT_FALSE(pictures.isEmpty());
        EXPECT_EQ(wrongPlaces(bytesOf(pictures.last(size)), layout, format, live.camera.picture()),
                  0)
            << name.toStdString();
    }
}

TEST(Camera, PassesBgrPicturesOnUnchangedAndInOrder)
{
    const LiveCamera live(321, 241);
    Picture expected = live.camera.picture();
    const int size = expected.width() * expected.height() * 4;
    // The converter is a consumer that has to understand the rows, and changes no colour here.
    Reader reader(expected, u"BGR"_s, kPictures,
                  {u"videoconvert"_s, u"!"_s, u"video/x-raw,format=BGRx"_s, u"!"_s});
    const QByteArray pictures = reader.wait(kPictures, size);
    ASSERT_FALSE(pictures.isEmpty());
    int before = -1;
    int changes = 0;
    for (int i = 0; i < kPictures; ++i) {
        const std::uint8_t* picture = bytesOf(pictures) + i * size;
        const int since = (256 + *picture - before) % 256;
        // A picture comes again while the machine is too busy for the next one.
        EXPECT_TRUE(before < 0 || since < 128) << since << " at " << i;
        changes += before >= 0 && since > 0 ? 1 : 0;
        before = *picture;
        expected.setNumber(*picture);
        int wrong = 0;
        for (int pixel = 0; pixel < size / 4; ++pixel) {
            wrong += std::memcmp(expected.bytes() + 3 * pixel, picture + 4 * pixel, 3) != 0;
        }
        EXPECT_EQ(wrong, 0) << "pixels of picture " << i;
    }
    EXPECT_GT(changes, 0);
}

// A file in the place of the device, which takes whole pictures as well.
TEST(LoopbackOutput, ShowsPicturesOfAnySizeInTheFormatThatItWasOpenedWith)
{
    const Picture picture = Picture::quadrants(360, 640);
    for (const auto& [width, height, layout] :
         {std::tuple{640, 360, PixelLayout::Yuy2}, {321, 241, PixelLayout::Bgr}}) {
        const CameraFormat format = *cameraFormat(width, height, 30);
        QTemporaryFile file;
        ASSERT_TRUE(file.open());
        V4l2Output output(V4l2Output::Device(dup(file.handle())), format);
        output.show(picture.bgr());
        ASSERT_TRUE(file.seek(0));
        const QByteArray shown = file.readAll();
        ASSERT_EQ(shown.size(), pictureSize(layout, format));
        EXPECT_EQ(wrongPlaces(bytesOf(shown), layout, format, picture), 0);
    }
}

TEST(Camera, IsWhatBrowsersAndPortalsTakeForOne)
{
    PipeWireSession session;
    session.startDaemon();
    using Case = std::tuple<int, int, float, QStringList>;
    const std::vector<Case> cases{
        {1280, 720, 30.0F, {u"YUY2 30/1"_s, u"NV12 30/1"_s, u"I420 30/1"_s, u"BGR 30/1"_s}},
        {644, 360, 0.0F, {u"YUY2 30/1"_s, u"NV12 30/1"_s, u"BGR 30/1"_s}},
        {854, 480, 29.97F, {u"YUY2 2997/100"_s, u"BGR 2997/100"_s}},
        {321, 241, std::numeric_limits<float>::quiet_NaN(), {u"BGR 30/1"_s}},
        {640, 361, 1e9F, {u"YUY2 1000/1"_s, u"BGR 1000/1"_s}},
    };
    for (const auto& [width, height, rate, formats] : cases) {
        const TestCamera camera(width, height, rate);
        const QJsonObject node = session.waitForCamera(width);
        EXPECT_EQ(offered(node), formats);
        const auto size = node["params"_L1]["EnumFormat"_L1][0]["size"_L1];
        EXPECT_EQ(size["width"_L1].toInt(), width);
        EXPECT_EQ(size["height"_L1].toInt(), height);
        const auto properties = node["props"_L1];
        EXPECT_EQ(properties["media.class"_L1].toString(), "Video/Source"_L1);
        EXPECT_EQ(properties["media.role"_L1].toString(), "Camera"_L1);
        EXPECT_EQ(properties["node.description"_L1].toString(), "Pevrix"_L1);
    }
}

TEST(Camera, IsNotMadeWithASizeOutOfRange)
{
    constexpr int kHuge = std::numeric_limits<int>::max();
    for (const auto& [width, height] :
         {std::pair{0, 480}, {640, -1}, {8193, 480}, {kHuge, kHuge}}) {
        EXPECT_EQ(scCreateCamera(width, height, 30), nullptr) << width << "x" << height;
    }
    scSendFrame(nullptr, nullptr);
    EXPECT_EQ(scIsConnected(nullptr), 0);
    scDeleteCamera(nullptr);
}
