// The back end's use of the system's decoder transform, against a transform that does what real
// ones do seldom or never.
#include "picture/PictureSize.h"
#include "tests/video/ScriptedTransform_win.h"
#include "video/ColorConversion.h"
#include "video/H264Decoder.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace pevrix {
namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;

struct Picture
{
    int width = 0;
    int height = 0;
    std::int64_t ptsUsec = 0;
    Bytes bgr;

    bool operator==(const Picture&) const = default;
};

// An NV12 picture in which every byte differs from its neighbours, padding included, with the
// packed picture that it stands for.
struct Nv12
{
    int width;
    int height;
    Bytes bytes;
    Bytes bgr = Bytes(pictureBytes(width, height));

    Nv12(int pictureWidth, int pictureHeight, int pitch, unsigned seed)
        : width(pictureWidth)
        , height(pictureHeight)
    {
        const int rows = height + (height + 1) / 2;
        const int lastRow = std::max(pitch, (width + 1) / 2 * 2);
        bytes.resize(static_cast<std::size_t>(pitch * (rows - 1) + lastRow));
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<std::uint8_t>(seed + i * 37);
        }
        convertToBgr(
            Nv12Picture{bytes.data(), bytes.data() + pitch * height, pitch, pitch, width, height},
            bgr.data());
    }

    Picture at(std::int64_t ptsUsec) const { return {width, height, ptsUsec, bgr}; }
};

class H264DecoderScripted : public testing::Test
{
protected:
    Script m_script{.types = {{.subtype = MFVideoFormat_I420, .width = 2, .height = 2},
                              {.width = 8, .height = 4, .stride = 8}}};
    const HRESULT m_apartment = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    ScriptedClass m_class{CLSID_CMSH264DecoderMFT, [this](HRESULT& result) -> IUnknown* {
                              result = m_script.createResult;
                              return FAILED(result) ? nullptr : new ScriptedTransform(m_script);
                          }};
    std::vector<Picture> m_pictures;
    std::optional<H264Decoder> m_decoder{
        std::in_place,
        [this](const std::uint8_t* bgr, int width, int height, std::int64_t ptsUsec) {
            m_pictures.push_back(
                {width, height, ptsUsec, Bytes(bgr, bgr + pictureBytes(width, height))});
        }};
    const Bytes m_unit = {0, 0, 0, 1, 0x65, 1, 2, 3};
    const Nv12 m_nv12{8, 4, 8, 1};

    void start() { ASSERT_TRUE(m_decoder->initialize(8, 4)); }
    void feed(std::int64_t ptsUsec = 0) { m_decoder->feed(m_unit, ptsUsec); }
};

TEST_F(H264DecoderScripted, PassesOnTheBytesAndEveryPictureInOrderWithTheirTimes)
{
    MFCreateAttributes(&m_script.attributes, 1);
    start();
    EXPECT_EQ(MFGetAttributeUINT32(m_script.attributes.Get(), CODECAPI_AVLowLatencyMode, 0), 1U);
    const Nv12 second(8, 4, 8, 2);
    m_script.outputs = {{.bytes = m_nv12.bytes, .time = 1234569},
                        {.bytes = second.bytes, .time = 10},
                        {.bytes = m_nv12.bytes}};
    feed(123456);
    EXPECT_EQ(m_script.input, m_unit);
    EXPECT_EQ(m_script.inputTime, 1234560);
    EXPECT_THAT(m_pictures, ElementsAre(m_nv12.at(123456), second.at(1), m_nv12.at(0)));

    // Times as a broken phone may send them.
    feed(std::numeric_limits<std::int64_t>::max());
    EXPECT_GT(m_script.inputTime, std::numeric_limits<std::int64_t>::max() - 10);
    feed(std::numeric_limits<std::int64_t>::min());
    EXPECT_LT(m_script.inputTime, std::numeric_limits<std::int64_t>::min() + 10);
}

TEST_F(H264DecoderScripted, TellsWhichPartOfAPictureIsMeantToBeSeen)
{
    for (const auto& [declared, shown] : {std::pair{0L, 8}, {6L, 6}, {8L, 8}, {9L, 8}, {-1L, 8}}) {
        m_script.types.back().shownWidth = declared;
        start();
        EXPECT_EQ(m_decoder->shownSize().width, shown);
        EXPECT_EQ(m_decoder->shownSize().height, 4);
    }
}

TEST_F(H264DecoderScripted, TakesSizeAndStrideOfTheNewOutputType)
{
    constexpr DWORD kOurs = 0;
    constexpr DWORD kTheirs = MFT_OUTPUT_STREAM_PROVIDES_SAMPLES;
    constexpr DWORD kEither = MFT_OUTPUT_STREAM_CAN_PROVIDE_SAMPLES;
    const struct
    {
        int width;
        int height;
        int stride; // 0: without the attribute
        DWORD memory;
        DWORD bufferSize; // 0: not told
    } rows[] = {{16, 8, 32, kOurs, 0},   {16, 8, 32, kOurs, 4096}, {16, 8, 32, kTheirs, 0},
                {4, 2, 64, kEither, 99}, {16, 8, 0, kOurs, 0},     {5, 3, 8, kOurs, 0},
                {5, 3, 0, kOurs, 0},     {1, 1, 0, kOurs, 0},      {7, 5, 0, kTheirs, 0}};
    for (const auto& to : rows) {
        const Nv12 after(to.width, to.height, to.stride == 0 ? to.width : to.stride, 2);
        m_script.streamFlags = to.memory;
        m_script.bufferSize = to.bufferSize;
        m_script.typesAfterChange = {{.subtype = MFVideoFormat_IYUV, .width = 8, .height = 4},
                                     {.width = static_cast<std::uint32_t>(to.width),
                                      .height = static_cast<std::uint32_t>(to.height),
                                      .stride = static_cast<std::uint32_t>(to.stride)}};
        start();
        m_script.outputs = {{.bytes = m_nv12.bytes, .time = 10},
                            {.result = MF_E_TRANSFORM_STREAM_CHANGE},
                            {.bytes = after.bytes, .time = 20}};
        m_pictures.clear();
        feed();
        EXPECT_THAT(m_pictures, ElementsAre(m_nv12.at(1), after.at(2)))
            << to.width << " x " << to.height << ", stride " << to.stride;
    }
}

TEST_F(H264DecoderScripted, DropsPicturesThatTheirBufferDoesNotHoldAndThoseThatFail)
{
    m_script.streamFlags = MFT_OUTPUT_STREAM_PROVIDES_SAMPLES;
    m_script.types.back().stride = 0xfffffff8; // bottom row first
    start();
    m_script.outputs = {{.bytes = m_nv12.bytes}};
    feed();
    m_script.types.back().stride = 8;
    start();
    m_script.outputs = {
        {.bytes = Bytes(m_nv12.bytes.size() - 1)}, {.result = E_FAIL}, {.bytes = m_nv12.bytes}};
    feed();
    EXPECT_TRUE(m_pictures.empty());
    m_decoder->drain();
    EXPECT_THAT(m_pictures, ElementsAre(m_nv12.at(0)));
}

TEST_F(H264DecoderScripted, DrainsATransformThatRefusesInputAndReturnsFromOneThatNeverSettles)
{
    start();
    m_script.refusals = 3;
    m_script.outputs = {{.bytes = m_nv12.bytes}};
    feed();
    EXPECT_EQ(m_script.input, m_unit);
    EXPECT_EQ(m_pictures.size(), 1U);

    m_script.typesAfterChange = m_script.types;
    m_script.refusals = std::numeric_limits<int>::max();
    feed();
    m_script.refusals = 0;
    m_script.outputs = {{.result = MF_E_TRANSFORM_STREAM_CHANGE}};
    m_script.repeatLastOutput = true;
    feed();
    EXPECT_TRUE(m_decoder->initialized());
}

TEST_F(H264DecoderScripted, KeepsNoPictureThatIsTooLarge)
{
    m_script.typesAfterChange = {{.width = 60000, .height = 60000, .stride = 60000}};
    start();
    m_script.outputs = {{.result = MF_E_TRANSFORM_STREAM_CHANGE}, {.result = MF_E_BUFFERTOOSMALL}};
    feed();
    EXPECT_TRUE(m_pictures.empty());
    EXPECT_EQ(m_script.flushes, 1);
}

TEST_F(H264DecoderScripted, LeavesNothingBehindWhenInitialisationFails)
{
    const Script good = m_script;
    const std::array<void (*)(Script&), 4> faults = {
        [](Script& script) { script.createResult = E_OUTOFMEMORY; },
        [](Script& script) { script.inputTypeResult = MF_E_INVALIDMEDIATYPE; },
        [](Script& script) { script.types.pop_back(); },
        [](Script& script) {
            script.outputTypeResult = MF_E_INVALIDMEDIATYPE;
        }};
    for (const auto fault : faults) {
        m_script = good;
        start();
        EXPECT_EQ(m_script.living, 1);
        fault(m_script);
        EXPECT_FALSE(m_decoder->initialize(8, 4));
        EXPECT_FALSE(m_decoder->initialized());
        EXPECT_EQ(m_script.living, 0);
        feed();
    }
}

// One call too many of MFStartup() would keep it running for good.
TEST_F(H264DecoderScripted, StartsMediaFoundationOnceAndEndsItWithTheDecoder)
{
    const auto runs = [] {
        DWORD queue = 0;
        return SUCCEEDED(MFAllocateWorkQueue(&queue));
    };
    start();
    start();
    m_decoder->reset();
    EXPECT_TRUE(runs());
    m_decoder.reset();
    EXPECT_FALSE(runs());
}

} // namespace
} // namespace pevrix
