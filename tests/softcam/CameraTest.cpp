#include "tests/softcam/Samples.h"
#include "tests/softcam/TestCamera.h"

#include <cstring>
#include <limits>
#include <ostream>
#include <tuple>

using namespace pevrix;
using namespace pevrix::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 20;

struct YuvLayout
{
    const char* name;
    PixelLayout layout;

    friend void PrintTo(const YuvLayout& layout, std::ostream* out) { *out << layout.name; }
};

class YuvLayouts : public testing::TestWithParam<YuvLayout>
{};

class BgrSizes : public testing::TestWithParam<std::pair<int, int>>
{};

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

TEST_P(YuvLayouts, ShowThePicturesInTheRightColours)
{
    const LiveCamera live;
    const Picture& picture = live.camera.picture();
    const CameraFormat format = *cameraFormat(picture.width(), picture.height(), 30);
    const auto size = static_cast<qsizetype>(pictureSize(GetParam().layout, format));
    Reader reader(live.camera, QString::fromLatin1(GetParam().name), kPictures);
    const QByteArray pictures = reader.wait(kPictures, size);
    ASSERT_FALSE(pictures.isEmpty());
    const QByteArray last = pictures.last(size);

    int wrong = 0;
    for (int y = 8; y < picture.height(); ++y) { // the first row of blocks has the number
        for (int x = 0; x < picture.width(); ++x) {
            const Samples seen = samplesAt(reinterpret_cast<const std::uint8_t*>(last.data()),
                                           GetParam().layout, format, x, y);
            wrong += !isClose(seen, expectedSamples(GetParam().layout, picture.at(x, y)), 2);
        }
    }
    EXPECT_EQ(wrong, 0) << "pixels";
}

INSTANTIATE_TEST_SUITE_P(Camera, YuvLayouts,
                         testing::Values(YuvLayout{"YUY2", PixelLayout::Yuy2},
                                         YuvLayout{"NV12", PixelLayout::Nv12},
                                         YuvLayout{"I420", PixelLayout::I420}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_P(BgrSizes, PassThePicturesOnUnchangedAndInOrder)
{
    const LiveCamera live(GetParam().first, GetParam().second);
    Picture expected = live.camera.picture();
    const int size = expected.width() * expected.height() * 4;
    // The converter is a consumer that has to understand the rows, and changes no colour here.
    Reader reader(live.camera, u"BGR"_s, kPictures,
                  {u"videoconvert"_s, u"!"_s, u"video/x-raw,format=BGRx"_s, u"!"_s});
    const QByteArray pictures = reader.wait(kPictures, size);
    ASSERT_FALSE(pictures.isEmpty());
    for (int i = 0; i < kPictures; ++i) {
        const std::uint8_t number = static_cast<std::uint8_t>(pictures[i * size]);
        if (i > 0) {
            const int since =
                (256 + number - static_cast<std::uint8_t>(pictures[(i - 1) * size])) % 256;
            EXPECT_TRUE(since >= 1 && since < 128) << since << " at " << i;
        }
        expected.setNumber(number);
        int wrong = 0;
        for (qsizetype pixel = 0; pixel < size / 4; ++pixel) {
            wrong += std::memcmp(expected.bytes() + 3 * pixel,
                                 pictures.constData() + i * size + 4 * pixel, 3) != 0;
        }
        EXPECT_EQ(wrong, 0) << "pixels of picture " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Camera, BgrSizes,
                         testing::Values(std::pair{640, 360}, std::pair{321, 241}));

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
