// The back end's use of the system's decoder transform, against a transform that does what real
// ones do seldom or never.
#include "tests/video/ScriptedTransform_win.h"
#include "video/H264Decoder.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace pevrix {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Calls = std::vector<std::string>;
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
    Bytes bytes;
    Bytes bgr;

    Nv12(int width, int height, int pitch, unsigned seed)
    {
        const int rows = height + (height + 1) / 2;
        const int lastRow = std::max(pitch, (width + 1) / 2 * 2);
        bytes.resize(static_cast<std::size_t>(pitch * (rows - 1) + lastRow));
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<std::uint8_t>(seed + i * 37);
        }
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int chroma = (height + y / 2) * pitch + (x & ~1);
                append(at(y * pitch + x), at(chroma), at(chroma + 1));
            }
        }
    }

    int at(int index) const { return bytes[static_cast<std::size_t>(index)]; }

    void append(int y, int u, int v)
    {
        const int c = y - 16;
        const int d = u - 128;
        const int e = v - 128;
        for (const int value :
             {298 * c + 516 * d, 298 * c - 100 * d - 208 * e, 298 * c + 409 * e}) {
            bgr.push_back(static_cast<std::uint8_t>(std::clamp((value + 128) >> 8, 0, 255)));
        }
    }

    Picture at(int width, int height, std::int64_t ptsUsec) const
    {
        return {width, height, ptsUsec, bgr};
    }
};

// Whether Media Foundation is started, by anybody in this process.
bool mediaFoundationRuns()
{
    DWORD queue = 0;
    if (FAILED(MFAllocateWorkQueue(&queue))) {
        return false;
    }
    MFUnlockWorkQueue(queue);
    return true;
}

class H264DecoderScripted : public testing::Test
{
protected:
    Script m_script{.types = {{.width = 8, .height = 4, .stride = 8}}};
    ScriptedDecoderClass m_class{m_script};
    std::vector<Picture> m_pictures;
    std::optional<H264Decoder> m_decoder{
        std::in_place,
        [this](const std::uint8_t* bgr, int width, int height, std::int64_t ptsUsec) {
            const auto size = static_cast<std::size_t>(width * height * 3);
            m_pictures.push_back({width, height, ptsUsec, Bytes(bgr, bgr + size)});
        }};

    void start()
    {
        ASSERT_TRUE(m_decoder->initialize(8, 4));
        m_script.calls.clear();
    }

    void feed(std::int64_t ptsUsec = 0) { m_decoder->feed(m_unit, ptsUsec); }

    Bytes m_unit = {0, 0, 0, 1, 0x65, 1, 2, 3};
};

TEST_F(H264DecoderScripted, DescribesTheStreamAndStartsIt)
{
    MFCreateAttributes(&m_script.attributes, 1);
    ASSERT_TRUE(m_decoder->initialize(1280, 720));
    EXPECT_THAT(m_script.calls, ElementsAre("created", "input type", "output type NV12",
                                            "begin streaming", "start of stream"));
    EXPECT_EQ(MFGetAttributeUINT32(m_script.attributes.Get(), CODECAPI_AVLowLatencyMode, 0), 1U);

    IMFMediaType* type = m_script.inputType.Get();
    GUID major{};
    GUID subtype{};
    type->GetGUID(MF_MT_MAJOR_TYPE, &major);
    type->GetGUID(MF_MT_SUBTYPE, &subtype);
    EXPECT_TRUE(major == MFMediaType_Video);
    EXPECT_TRUE(subtype == MFVideoFormat_H264);
    EXPECT_EQ(MFGetAttributeUINT64(type, MF_MT_FRAME_SIZE, 0), UINT64{1280} << 32 | 720);
    EXPECT_EQ(MFGetAttributeUINT64(type, MF_MT_FRAME_RATE, 0), UINT64{30} << 32 | 1);
    EXPECT_EQ(MFGetAttributeUINT32(type, MF_MT_INTERLACE_MODE, 0), 2U);
}

TEST_F(H264DecoderScripted, PassesOnTheBytesAndTheirTime)
{
    start();
    feed(123456);
    EXPECT_EQ(m_script.input, m_unit);
    EXPECT_EQ(m_script.inputTime, 1234560);
    EXPECT_EQ(m_script.inputDuration, 333333);

    // Times as a broken phone may send them.
    feed(std::numeric_limits<std::int64_t>::max());
    EXPECT_GT(m_script.inputTime, std::numeric_limits<std::int64_t>::max() - 10);
    feed(std::numeric_limits<std::int64_t>::min());
    EXPECT_LT(m_script.inputTime, std::numeric_limits<std::int64_t>::min() + 10);
}

TEST_F(H264DecoderScripted, DeliversEveryPictureInOrderWithItsTime)
{
    start();
    const std::array nv12 = {Nv12(8, 4, 8, 1), Nv12(8, 4, 8, 2), Nv12(8, 4, 8, 3)};
    m_script.outputs = {{.bytes = nv12[0].bytes, .time = 1234569},
                        {.bytes = nv12[1].bytes, .time = 10},
                        {.bytes = nv12[2].bytes}};
    feed();
    EXPECT_THAT(m_pictures,
                ElementsAre(nv12[0].at(8, 4, 123456), nv12[1].at(8, 4, 1), nv12[2].at(8, 4, 0)));
}

TEST_F(H264DecoderScripted, PassesOverOutputTypesOtherThanNv12)
{
    const Nv12 nv12(6, 2, 7, 1);
    m_script.types = {{.subtype = MFVideoFormat_I420, .width = 8, .height = 4},
                      {.subtype = MFVideoFormat_YUY2, .width = 8, .height = 4},
                      {.width = 6, .height = 2, .stride = 7},
                      {.width = 8, .height = 4}};
    start();
    m_script.outputs = {{.bytes = nv12.bytes}};
    feed();
    EXPECT_THAT(m_pictures, ElementsAre(nv12.at(6, 2, 0)));
}

TEST_F(H264DecoderScripted, TellsWhichPartOfAPictureIsMeantToBeSeen)
{
    for (const auto& [declared, shown] : {std::pair{0L, 8}, {6L, 6}, {8L, 8}, {9L, 8}, {-1L, 8}}) {
        m_script.types[0].shownWidth = declared;
        start();
        EXPECT_EQ(m_decoder->shownSize().width, shown);
        EXPECT_EQ(m_decoder->shownSize().height, 4);
    }
}

TEST_F(H264DecoderScripted, DrainsATransformThatRefusesInput)
{
    start();
    const Nv12 nv12(8, 4, 8, 1);
    m_script.refusals = 3;
    m_script.outputs = {{.bytes = nv12.bytes}};
    feed();
    EXPECT_THAT(m_script.calls,
                ElementsAre("input refused", "input refused", "input refused", "input"));
    EXPECT_EQ(m_pictures.size(), 1U);
}

struct Geometry
{
    int width;
    int height;
    int stride; // 0: without the attribute
    DWORD streamFlags;
    bool sizeOfBufferKnown;
};

class H264DecoderGeometries : public H264DecoderScripted,
                              public testing::WithParamInterface<Geometry>
{};

TEST_P(H264DecoderGeometries, TakesSizeAndStrideOfTheNewOutputType)
{
    const Geometry to = GetParam();
    const int pitch = to.stride == 0 ? to.width : to.stride;
    const Nv12 before(8, 4, 8, 1);
    const Nv12 after(to.width, to.height, pitch, 2);
    m_script.streamFlags = to.streamFlags;
    m_script.bufferSize = to.sizeOfBufferKnown ? 4096 : 0;
    m_script.typesAfterChange = {{.subtype = MFVideoFormat_IYUV, .width = 8, .height = 4},
                                 {.width = static_cast<std::uint32_t>(to.width),
                                  .height = static_cast<std::uint32_t>(to.height),
                                  .stride = static_cast<std::uint32_t>(to.stride)}};
    start();
    m_script.outputs = {{.bytes = before.bytes, .time = 10},
                        {.result = MF_E_TRANSFORM_STREAM_CHANGE},
                        {.bytes = after.bytes, .time = 20}};
    feed();
    EXPECT_THAT(m_pictures, ElementsAre(before.at(8, 4, 1), after.at(to.width, to.height, 2)));
    EXPECT_THAT(m_script.calls, ElementsAre("input", "output type NV12"));
}

INSTANTIATE_TEST_SUITE_P(
    StreamChanges, H264DecoderGeometries,
    testing::Values(Geometry{16, 8, 32, 0, false}, Geometry{16, 8, 32, 0, true},
                    Geometry{16, 8, 32, MFT_OUTPUT_STREAM_PROVIDES_SAMPLES, false},
                    Geometry{4, 2, 64, MFT_OUTPUT_STREAM_CAN_PROVIDE_SAMPLES, true},
                    Geometry{16, 8, 0, 0, false}, Geometry{5, 3, 8, 0, false},
                    Geometry{5, 3, 0, 0, false}, Geometry{1, 1, 0, 0, false},
                    Geometry{7, 5, 0, MFT_OUTPUT_STREAM_PROVIDES_SAMPLES, false}));

TEST_F(H264DecoderScripted, GoesOnAfterAFailureOfTheTransform)
{
    start();
    const Nv12 nv12(8, 4, 8, 1);
    m_script.outputs = {{.result = E_FAIL}, {.bytes = nv12.bytes}};
    feed();
    EXPECT_TRUE(m_pictures.empty());
    m_decoder->drain();
    EXPECT_EQ(m_pictures.size(), 1U);
}

TEST_F(H264DecoderScripted, DropsPicturesThatTheirBufferDoesNotHold)
{
    m_script.streamFlags = MFT_OUTPUT_STREAM_PROVIDES_SAMPLES;
    m_script.types = {{.width = 8, .height = 4, .stride = 0xfffffff8}}; // bottom row first
    start();
    const Nv12 nv12(8, 4, 8, 1);
    m_script.outputs = {{.bytes = nv12.bytes}};
    feed();
    m_script.types[0].stride = 8;
    start();
    m_script.outputs = {{.bytes = Bytes(nv12.bytes.size() - 1)}, {.bytes = nv12.bytes}};
    feed();
    EXPECT_THAT(m_pictures, ElementsAre(nv12.at(8, 4, 0)));
}

TEST_F(H264DecoderScripted, ReturnsFromATransformThatNeverSettles)
{
    m_script.typesAfterChange = m_script.types;
    start();
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
    EXPECT_THAT(m_script.calls, ElementsAre("input", "output type NV12", "flush"));
}

TEST_F(H264DecoderScripted, EndsTheOldTransformBeforeItMakesANewOne)
{
    start();
    ASSERT_TRUE(m_decoder->initialize(16, 8));
    EXPECT_THAT(m_script.calls,
                ElementsAre("end of stream", "flush", "destroyed", "created", "input type",
                            "output type NV12", "begin streaming", "start of stream"));
    m_script.calls.clear();
    m_decoder.reset();
    EXPECT_THAT(m_script.calls, ElementsAre("end of stream", "flush", "destroyed"));
}

TEST_F(H264DecoderScripted, LeavesNothingBehindWhenInitialisationFails)
{
    const Script good = m_script;
    const auto tryWith = [&](auto change) {
        m_script = good;
        change(m_script);
        EXPECT_FALSE(m_decoder->initialize(8, 4));
        EXPECT_FALSE(m_decoder->initialized());
        EXPECT_EQ(m_script.living, 0);
        feed();
        return m_script.calls;
    };
    const auto ended = [](Calls calls) {
        calls.insert(calls.end(), {"end of stream", "flush", "destroyed"});
        return calls;
    };
    EXPECT_EQ(tryWith([](Script& s) { s.createResult = E_OUTOFMEMORY; }), Calls{});
    EXPECT_EQ(tryWith([](Script& s) { s.inputTypeResult = MF_E_INVALIDMEDIATYPE; }),
              ended({"created", "input type"}));
    EXPECT_EQ(tryWith([](Script& s) { s.types[0].subtype = MFVideoFormat_I420; }),
              ended({"created", "input type"}));
    EXPECT_EQ(tryWith([](Script& s) { s.outputTypeResult = MF_E_INVALIDMEDIATYPE; }),
              ended({"created", "input type", "output type NV12"}));
    m_script = good;
    EXPECT_TRUE(m_decoder->initialize(8, 4));
}

// One call too many of MFStartup() would keep it running for good.
TEST_F(H264DecoderScripted, StartsMediaFoundationOnceAndEndsItWithTheDecoder)
{
    ASSERT_FALSE(mediaFoundationRuns());
    for (int i = 0; i < 3; ++i) {
        start();
    }
    m_script.createResult = E_FAIL;
    EXPECT_FALSE(m_decoder->initialize(8, 4));
    m_decoder->reset();
    EXPECT_TRUE(mediaFoundationRuns());
    m_decoder.reset();
    EXPECT_FALSE(mediaFoundationRuns());
}

} // namespace
} // namespace pevrix
