// The recorder over a scripted sink writer, and over the system's own.
#include "tests/video/RecorderTraits.h"
#include "tests/video/ScriptedTransform_win.h"
#include "tools/doubles/ThisProcess.h"
#include "video/Mp4RecorderPlatform_win.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace pevrix {

namespace {

using namespace std::chrono_literals;
using Microsoft::WRL::ComPtr;
using testing::ElementsAre;
using testing::ElementsAreArray;

// What the writer and the functions around it shall do, and what was done with them.
struct WriterScript
{
    std::string failing{}; // the step that fails
    std::vector<std::string> calls{};
    std::chrono::steady_clock::time_point now{};
    std::filesystem::path path{};
    UINT32 throttlingDisabled = 0;
    bool fragments = true;          // whether the system can write fragmented files
    std::vector<GUID> containers{}; // that were asked for; GUID_NULL: by the file's name
    ComPtr<IMFMediaType> outputType{};
    ComPtr<IMFMediaType> inputType{};
    std::vector<ComPtr<IMFSample>> samples{};
    MF_SINK_WRITER_STATISTICS statistics{};

    HRESULT step(const std::string& name)
    {
        calls.push_back(name);
        return name == failing ? E_FAIL : S_OK;
    }
    Mp4Recorder::Platform platform();
};

constexpr DWORD kStream = 3;

class ScriptedWriter final : public CountedObject<IMFSinkWriter>
{
public:
    explicit ScriptedWriter(WriterScript& script)
        : m_script(script)
    {}
    ~ScriptedWriter() override { m_script.step("writer released"); }

    STDMETHODIMP AddStream(IMFMediaType* type, DWORD* index) override
    {
        m_script.outputType = type;
        *index = kStream;
        return m_script.step("AddStream");
    }
    STDMETHODIMP SetInputMediaType(DWORD index, IMFMediaType* type,
                                   IMFAttributes* parameters) override
    {
        EXPECT_EQ(index, kStream);
        EXPECT_EQ(parameters, nullptr);
        m_script.inputType = type;
        return m_script.step("SetInputMediaType");
    }
    STDMETHODIMP BeginWriting() override { return m_script.step("BeginWriting"); }
    STDMETHODIMP WriteSample(DWORD index, IMFSample* sample) override
    {
        EXPECT_EQ(index, kStream);
        m_script.samples.emplace_back(sample);
        return m_script.step("WriteSample");
    }
    STDMETHODIMP Finalize() override { return m_script.step("Finalize"); }

    STDMETHODIMP SendStreamTick(DWORD, LONGLONG) override { return E_NOTIMPL; }
    STDMETHODIMP PlaceMarker(DWORD, void*) override { return E_NOTIMPL; }
    STDMETHODIMP NotifyEndOfSegment(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Flush(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetServiceForStream(DWORD, REFGUID, REFIID, void**) override { return E_NOTIMPL; }
    STDMETHODIMP GetStatistics(DWORD index, MF_SINK_WRITER_STATISTICS* statistics) override
    {
        EXPECT_EQ(index, kStream);
        EXPECT_EQ(statistics->cb, sizeof *statistics);
        *statistics = m_script.statistics;
        return m_script.failing == "GetStatistics" ? E_FAIL : S_OK;
    }

private:
    WriterScript& m_script;
};

// Steps that fail do so in the place of the real function.
Mp4Recorder::Platform WriterScript::platform()
{
    Mp4Recorder::Platform platform;
    platform.startup = [this](ULONG version, DWORD flags) {
        EXPECT_EQ(version, MF_VERSION);
        EXPECT_EQ(flags, MFSTARTUP_FULL);
        return FAILED(step("MFStartup")) ? E_FAIL : MFStartup(version, flags);
    };
    platform.shutdown = [this] {
        step("MFShutdown");
        return MFShutdown();
    };
    platform.createAttributes = [this](IMFAttributes** attributes, UINT32 size) {
        EXPECT_EQ(size, 2);
        return FAILED(step("MFCreateAttributes")) ? E_FAIL : MFCreateAttributes(attributes, size);
    };
    platform.createSinkWriter = [this](LPCWSTR url, IMFByteStream* stream,
                                       IMFAttributes* attributes, IMFSinkWriter** writer) {
        EXPECT_EQ(stream, nullptr);
        path = url;
        attributes->GetUINT32(MF_SINK_WRITER_DISABLE_THROTTLING, &throttlingDisabled);
        containers.push_back(GUID_NULL);
        attributes->GetGUID(MF_TRANSCODE_CONTAINERTYPE, &containers.back());
        if (FAILED(step("MFCreateSinkWriterFromURL")) ||
            (!fragments && containers.back() != GUID_NULL)) {
            return E_FAIL;
        }
        std::ofstream{path};
        *writer = new ScriptedWriter(*this);
        return S_OK;
    };
    platform.createMediaType = [this](IMFMediaType** type) {
        return FAILED(step("MFCreateMediaType")) ? E_FAIL : MFCreateMediaType(type);
    };
    platform.createMemoryBuffer = [this](DWORD size, IMFMediaBuffer** buffer) {
        return FAILED(step("MFCreateMemoryBuffer")) ? E_FAIL : MFCreateMemoryBuffer(size, buffer);
    };
    platform.createSample = [this](IMFSample** sample) {
        return FAILED(step("MFCreateSample")) ? E_FAIL : MFCreateSample(sample);
    };
    platform.deleteFile = [this](LPCWSTR name) {
        step("DeleteFileW");
        return DeleteFileW(name);
    };
    platform.now = [this] {
        return now;
    };
    return platform;
}

using Numbers = std::vector<std::pair<GUID, UINT64>>;

// Checks that a type has these attributes, of either width, and its two GUIDs, and no others.
void expectType(IMFMediaType* type, const GUID& subtype, const Numbers& numbers)
{
    ASSERT_NE(type, nullptr);
    GUID id{};
    EXPECT_EQ(type->GetGUID(MF_MT_MAJOR_TYPE, &id), S_OK);
    EXPECT_EQ(id, MFMediaType_Video);
    EXPECT_EQ(type->GetGUID(MF_MT_SUBTYPE, &id), S_OK);
    EXPECT_EQ(id, subtype);
    for (const auto& [key, expected] : numbers) {
        UINT64 value = 0;
        UINT32 narrow = 0;
        if (FAILED(type->GetUINT64(key, &value))) {
            EXPECT_EQ(type->GetUINT32(key, &narrow), S_OK);
            value = narrow;
        }
        EXPECT_EQ(value, expected) << "attribute " << std::hex << key.Data1;
    }
    UINT32 count = 0;
    type->GetCount(&count);
    EXPECT_EQ(count, numbers.size() + 2);
}

constexpr UINT64 pair(UINT64 upper, UINT64 lower)
{
    return upper << 32 | lower;
}

class Mp4RecorderScripted : public testing::Test
{
protected:
    const TemporaryFolder m_folder;
    const std::filesystem::path m_path = m_folder / "a.mp4";
    WriterScript m_script;
};

TEST_F(Mp4RecorderScripted, DescribesWhatItWritesAndWhatItGives)
{
    Mp4Recorder recorder(m_script.platform());
    ASSERT_TRUE(recorder.open(m_path, 640, 360, 25));
    EXPECT_EQ(m_script.path, m_path);
    EXPECT_EQ(m_script.throttlingDisabled, 1);
    EXPECT_THAT(m_script.containers, ElementsAre(MFTranscodeContainerType_FMPEG4));
    const Numbers common = {{MF_MT_INTERLACE_MODE, 2},
                            {MF_MT_FRAME_SIZE, pair(640, 360)},
                            {MF_MT_FRAME_RATE, pair(25, 1)},
                            {MF_MT_PIXEL_ASPECT_RATIO, pair(1, 1)}};
    Numbers output = common;
    output.insert(output.end(), {{MF_MT_AVG_BITRATE, 6000000}, {MF_MT_MPEG2_PROFILE, 77}});
    Numbers input = common;
    input.emplace_back(MF_MT_DEFAULT_STRIDE, 640 * 4);
    expectType(m_script.outputType.Get(), MFVideoFormat_H264, output);
    expectType(m_script.inputType.Get(), MFVideoFormat_RGB32, input);
    recorder.close();
    EXPECT_THAT(m_script.calls,
                ElementsAre("MFStartup", "MFCreateAttributes", "MFCreateSinkWriterFromURL",
                            "MFCreateMediaType", "MFCreateMediaType", "AddStream",
                            "SetInputMediaType", "BeginWriting", "Finalize", "writer released",
                            "MFShutdown"));
}

TEST_F(Mp4RecorderScripted, StampsPicturesWithTheTimeThatHasPassed)
{
    const std::vector<std::uint8_t> picture = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const std::array durations = {std::pair(30, 333333), std::pair(0, 333333),
                                  std::pair(-7, 333333), std::pair(60, 166666)};
    for (const auto& [fps, duration] : durations) {
        m_script.now += 5s;
        m_script.samples.clear();
        Mp4Recorder recorder(m_script.platform());
        ASSERT_TRUE(recorder.open(m_path, 2, 2, fps));
        for (const auto wait : {0ns, 1'000'000'150ns}) {
            m_script.now += wait;
            recorder.writeFrame(picture.data());
        }
        ASSERT_EQ(m_script.samples.size(), 2);
        std::vector<LONGLONG> times;
        for (const auto& sample : m_script.samples) {
            LONGLONG value = 0;
            EXPECT_EQ(sample->GetSampleDuration(&value), S_OK);
            EXPECT_EQ(value, duration);
            EXPECT_EQ(sample->GetSampleTime(&value), S_OK);
            times.push_back(value);
            ComPtr<IMFMediaBuffer> buffer;
            DWORD length = 0;
            ASSERT_EQ(sample->ConvertToContiguousBuffer(&buffer), S_OK);
            EXPECT_EQ(buffer->GetCurrentLength(&length), S_OK);
            EXPECT_EQ(length, 16);
            EXPECT_THAT(
                LockedBuffer(buffer.Get()).bytes(),
                ElementsAreArray({1, 2, 3, 255, 4, 5, 6, 255, 7, 8, 9, 255, 10, 11, 12, 255}));
        }
        EXPECT_THAT(times, ElementsAre(0, 10'000'001));
    }
}

TEST_F(Mp4RecorderScripted, UndoesWhatItBeganWhenOpeningFails)
{
    struct Case
    {
        const char* failing;
        bool fileMade;
    };
    for (const Case& c :
         {Case{"MFCreateAttributes", false}, Case{"MFCreateSinkWriterFromURL", false},
          Case{"MFCreateMediaType", true}, Case{"AddStream", true}, Case{"SetInputMediaType", true},
          Case{"BeginWriting", true}}) {
        m_script.calls.clear();
        m_script.failing = c.failing;
        Mp4Recorder recorder(m_script.platform());
        EXPECT_FALSE(recorder.open(m_path, 64, 48, 30)) << c.failing;
        EXPECT_FALSE(recorder.isOpen());
        EXPECT_TRUE(m_folder.empty()) << c.failing;
        std::vector<std::string> undone = {"MFShutdown"};
        if (c.fileMade) {
            undone = {"writer released", "MFShutdown", "DeleteFileW"};
        }
        ASSERT_GT(m_script.calls.size(), undone.size());
        EXPECT_THAT(std::vector(m_script.calls.end() - static_cast<std::ptrdiff_t>(undone.size()),
                                m_script.calls.end()),
                    ElementsAreArray(undone))
            << c.failing;
        EXPECT_EQ(m_script.calls[m_script.calls.size() - undone.size() - 1], c.failing);
        m_script.failing.clear();
        EXPECT_TRUE(recorder.open(m_path, 64, 48, 30)) << "after " << c.failing;
        recorder.close();
        std::filesystem::remove(m_path);
    }
}

TEST_F(Mp4RecorderScripted, GoesOnAfterStepsThatNeedNotSucceed)
{
    const std::vector<std::uint8_t> picture(64 * 48 * 3);
    for (const char* failing :
         {"MFStartup", "GetStatistics", "MFCreateMemoryBuffer", "MFCreateSample", "WriteSample"}) {
        MFStartup(MF_VERSION, MFSTARTUP_FULL);
        m_script.calls.clear();
        m_script.failing = failing;
        Mp4Recorder recorder(m_script.platform());
        ASSERT_TRUE(recorder.open(m_path, 64, 48, 30)) << failing;
        recorder.writeFrame(picture.data());
        EXPECT_TRUE(recorder.isOpen());
        EXPECT_TRUE(recorder.close());
        const bool started = std::string_view(failing) != "MFStartup";
        EXPECT_EQ(std::count(m_script.calls.begin(), m_script.calls.end(), "MFShutdown"),
                  started ? 1 : 0);
        MFShutdown();
    }
}

TEST_F(Mp4RecorderScripted, WritesAPlainFileWhereTheSystemKnowsNoFragments)
{
    m_script.fragments = false;
    Mp4Recorder recorder(m_script.platform());
    ASSERT_TRUE(recorder.open(m_path, 64, 48, 30));
    EXPECT_THAT(m_script.containers, ElementsAre(MFTranscodeContainerType_FMPEG4, GUID_NULL));
}

TEST_F(Mp4RecorderScripted, EndsWhenTheWriterTakesNothingAnyMoreAndTellsWhenTheEndIsMissing)
{
    const std::vector<std::uint8_t> picture(64 * 48 * 3);
    Mp4Recorder recorder(m_script.platform());
    ASSERT_TRUE(recorder.open(m_path, 64, 48, 30));
    m_script.failing = "WriteSample";
    for (const auto wait : {0ms, 999ms}) {
        m_script.now += wait;
        recorder.writeFrame(picture.data());
        EXPECT_TRUE(recorder.isOpen());
    }
    m_script.failing.clear();
    recorder.writeFrame(picture.data());
    m_script.failing = "WriteSample";
    m_script.now += 10s; // a pause of the video is no failure
    recorder.writeFrame(picture.data());
    EXPECT_TRUE(recorder.isOpen());
    m_script.now += 1s;
    recorder.writeFrame(picture.data());
    EXPECT_FALSE(recorder.isOpen());
    EXPECT_FALSE(recorder.close());
    EXPECT_EQ(std::ranges::count(m_script.calls, "Finalize"), 1) << "what is there is kept";

    ASSERT_TRUE(recorder.open(m_path, 64, 48, 30));
    m_script.failing = "Finalize";
    EXPECT_FALSE(recorder.close());
}

TEST_F(Mp4RecorderScripted, LeavesPicturesOutWhileTheEncoderIsFarBehind)
{
    const std::vector<std::uint8_t> picture(64 * 48 * 3);
    Mp4Recorder recorder(m_script.platform());
    ASSERT_TRUE(recorder.open(m_path, 64, 48, 30));
    const struct
    {
        DWORD waitingBytes;
        QWORD received;
        QWORD encoded;
        std::uint64_t dropped;
    } rows[] = {
        {128U << 20, 0, 0, 0}, {(128U << 20) + 1, 0, 0, 1},
        {~0U, 0, 0, 1},        {0, 20'000, 9'078, 0}, // pictures of 12 kB
        {0, 20'000, 9'077, 1}, {0, 20'000, 0, 0},     // does not tell
    };
    for (const auto& row : rows) {
        m_script.statistics.dwByteCountQueued = row.waitingBytes;
        m_script.statistics.qwNumSamplesReceived = row.received;
        m_script.statistics.qwNumSamplesEncoded = row.encoded;
        const auto before = recorder.droppedPictures();
        recorder.writeFrame(picture.data());
        EXPECT_EQ(recorder.droppedPictures() - before, row.dropped);
    }
    EXPECT_EQ(m_script.samples.size(), 3);
    recorder.close();
    EXPECT_EQ(recorder.droppedPictures(), 3);
}

// Wine's writer takes no pictures, and never closes the file that it has made: it cannot be
// deleted.
TEST(Mp4RecorderSystem, RecordsOrFailsCleanly)
{
    const TemporaryFolder folder;
    const std::vector<std::uint8_t> picture(640 * 360 * 3);
    Mp4Recorder recorder;
    const bool opened = recorder.open(folder / "a.mp4", 640, 360, 30);
    EXPECT_EQ(recorder.isOpen(), opened);
    recorder.writeFrame(picture.data());
    recorder.close();
    if (runsUnderWine()) {
        EXPECT_FALSE(opened);
    } else {
        EXPECT_EQ(folder.empty(), !opened);
    }
}

} // namespace

// The script has to outlive the recorder.
std::unique_ptr<Mp4Recorder> makeWorkingRecorder()
{
    static WriterScript script;
    return std::make_unique<Mp4Recorder>(script.platform());
}

} // namespace pevrix
