#include "tests/softcam/TestCamera.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <ostream>
#include <tuple>

using namespace pevrix::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 20;

std::uint8_t byteAt(const QByteArray& bytes, qsizetype index)
{
    return static_cast<std::uint8_t>(bytes[index]);
}

struct Yuv
{
    int y = 0;
    int u = 0;
    int v = 0;
};

// BT.601, limited range, as the standard gives it.
Yuv expectedYuv(const Color& color)
{
    const double r = color.red / 255.0;
    const double g = color.green / 255.0;
    const double b = color.blue / 255.0;
    const double luma = 0.299 * r + 0.587 * g + 0.114 * b;
    return {static_cast<int>(std::lround(16 + 219 * luma)),
            static_cast<int>(std::lround(128 + 224 * (b - luma) / 1.772)),
            static_cast<int>(std::lround(128 + 224 * (r - luma) / 1.402))};
}

Yuv yuy2At(const QByteArray& picture, qsizetype width, qsizetype, qsizetype x, qsizetype y)
{
    const qsizetype pair = (y * width + x / 2 * 2) * 2;
    return {byteAt(picture, pair + x % 2 * 2), byteAt(picture, pair + 1),
            byteAt(picture, pair + 3)};
}

Yuv nv12At(const QByteArray& picture, qsizetype width, qsizetype height, qsizetype x, qsizetype y)
{
    const qsizetype chroma = width * height + y / 2 * width + x / 2 * 2;
    return {byteAt(picture, y * width + x), byteAt(picture, chroma), byteAt(picture, chroma + 1)};
}

Yuv i420At(const QByteArray& picture, qsizetype width, qsizetype height, qsizetype x, qsizetype y)
{
    const qsizetype chroma = width * height + y / 2 * (width / 2) + x / 2;
    return {byteAt(picture, y * width + x), byteAt(picture, chroma),
            byteAt(picture, chroma + width * height / 4)};
}

struct YuvLayout
{
    const char* name;
    int bitsPerPixel;
    decltype(&yuy2At) at;

    friend void PrintTo(const YuvLayout& layout, std::ostream* out) { *out << layout.name; }
};

class YuvLayouts : public testing::TestWithParam<YuvLayout>
{};

class BgrSizes : public testing::TestWithParam<std::pair<int, int>>
{};

// What the node offers, as "FORMAT RATE" in order.
QStringList offered(const QJsonObject& camera)
{
    QStringList list;
    for (const auto& entry : camera["params"_L1]["EnumFormat"_L1].toArray()) {
        const auto rate = entry["framerate"_L1];
        // Browsers skip an entry in which these are choices, which are objects with other keys.
        EXPECT_TRUE(entry["format"_L1].isString() && entry["size"_L1]["width"_L1].isDouble());
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
    const int size = picture.width() * picture.height() * GetParam().bitsPerPixel / 8;
    Reader reader(live.camera, QString::fromLatin1(GetParam().name), kPictures);
    const QByteArray pictures = reader.wait(kPictures, size);
    ASSERT_FALSE(pictures.isEmpty());
    const QByteArray last = pictures.last(size);

    int wrong = 0;
    for (int y = 8; y < picture.height(); ++y) { // the first row of blocks has the number
        for (int x = 0; x < picture.width(); ++x) {
            const Yuv expected = expectedYuv(picture.at(x, y));
            const Yuv seen = GetParam().at(last, picture.width(), picture.height(), x, y);
            wrong += std::abs(seen.y - expected.y) > 2 || std::abs(seen.u - expected.u) > 2 ||
                     std::abs(seen.v - expected.v) > 2;
        }
    }
    EXPECT_EQ(wrong, 0) << "pixels";
}

INSTANTIATE_TEST_SUITE_P(Camera, YuvLayouts,
                         testing::Values(YuvLayout{"YUY2", 16, yuy2At},
                                         YuvLayout{"NV12", 12, nv12At},
                                         YuvLayout{"I420", 12, i420At}),
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
        const std::uint8_t number = byteAt(pictures, i * size);
        if (i > 0) {
            const int since = (256 + number - byteAt(pictures, (i - 1) * size)) % 256;
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
        ASSERT_TRUE(waitUntil([&] { return session.camera().isEmpty(); })) << "the camera stays";
        const TestCamera camera(width, height, rate);
        const QJsonObject node = session.waitForCamera();
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
