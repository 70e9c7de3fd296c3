// The recorder over a scripted sink writer, and over the system's own.
#include "tests/video/RecorderTraits.h"
#include "tools/doubles/ComObject_win.h"
#include "tools/doubles/ThisProcess.h"
#include "video/Mp4RecorderPlatform_win.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <vector>

namespace pevrix {

namespace {

using namespace std::chrono_literals;
using Microsoft::WRL::ComPtr;
using testing::ElementsAre;
using testing::ElementsAreArray;

// What the writer shall do, and what it was given.
struct WriterScript
{
    std::string failing{}; // the step that fails
    std::chrono::steady_clock::time_point now{};
    bool fragments = true;          // whether the system can write fragmented files
    std::vector<GUID> containers{}; // that were asked for; GUID_NULL: by the file's name
    UINT32 throttlingDisabled = 0;
    ComPtr<IMFMediaType> inputType{};
    std::vector<ComPtr<IMFSample>> samples{};
    MF_SINK_WRITER_STATISTICS statistics{};
    int finished = 0;

    HRESULT step(const char* name) const { return name == failing ? E_FAIL : S_OK; }
    Mp4Recorder::Platform platform();
};

constexpr DWORD kStream = 3;

class ScriptedWriter final : public CountedObject<IMFSinkWriter>
{
public:
    explicit ScriptedWriter(WriterScript& script)
        : m_script(script)
    {}

    STDMETHODIMP AddStream(IMFMediaType*, DWORD* index) override
    {
        *index = kStream;
        return m_script.step("AddStream");
    }
    STDMETHODIMP SetInputMediaType(DWORD index, IMFMediaType* type, IMFAttributes*) override
    {
        EXPECT_EQ(index, kStream);
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
    STDMETHODIMP Finalize() override
    {
        ++m_script.finished;
        return m_script.step("Finalize");
    }
    STDMETHODIMP GetStatistics(DWORD index, MF_SINK_WRITER_STATISTICS* statistics) override
    {
        EXPECT_EQ(index, kStream);
        EXPECT_EQ(statistics->cb, sizeof *statistics);
        *statistics = m_script.statistics;
        return m_script.step("GetStatistics");
    }

    STDMETHODIMP SendStreamTick(DWORD, LONGLONG) override { return E_NOTIMPL; }
    STDMETHODIMP PlaceMarker(DWORD, void*) override { return E_NOTIMPL; }
    STDMETHODIMP NotifyEndOfSegment(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP Flush(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetServiceForStream(DWORD, REFGUID, REFIID, void**) override { return E_NOTIMPL; }

private:
    WriterScript& m_script;
};

Mp4Recorder::Platform WriterScript::platform()
{
    Mp4Recorder::Platform platform;
    platform.createSinkWriter = [this](LPCWSTR path, IMFByteStream*, IMFAttributes* attributes,
                                       IMFSinkWriter** writer) {
        attributes->GetUINT32(MF_SINK_WRITER_DISABLE_THROTTLING, &throttlingDisabled);
        containers.push_back(GUID_NULL);
        attributes->GetGUID(MF_TRANSCODE_CONTAINERTYPE, &containers.back());
        if (!fragments && containers.back() != GUID_NULL) {
            return E_FAIL;
        }
        std::ofstream{std::filesystem::path(path)};
        *writer = new ScriptedWriter(*this);
        return S_OK;
    };
    platform.now = [this] {
        return now;
    };
    return platform;
}

class Mp4RecorderScripted : public testing::Test
{
protected:
    const TemporaryFolder m_folder;
    const std::filesystem::path m_path = m_folder / "a.mp4";
    const std::vector<std::uint8_t> m_picture = std::vector<std::uint8_t>(64 * 48 * 3);
    WriterScript m_script;
    Mp4Recorder m_recorder{m_script.platform()};

    void open() { ASSERT_TRUE(m_recorder.open(m_path, 64, 48, 30)); }
    void write() { m_recorder.writeFrame(m_picture.data()); }
};

TEST_F(Mp4RecorderScripted, AsksForAFileOfFragmentsAndNeverToWait)
{
    ASSERT_TRUE(m_recorder.open(m_path, 640, 360, 25));
    EXPECT_EQ(m_script.throttlingDisabled, 1);
    EXPECT_THAT(m_script.containers, ElementsAre(MFTranscodeContainerType_FMPEG4));
    const auto stride = MFGetAttributeUINT32(m_script.inputType.Get(), MF_MT_DEFAULT_STRIDE, 0);
    EXPECT_EQ(stride, 640 * 4) << "top row first";
}

TEST_F(Mp4RecorderScripted, StampsPicturesWithTheTimeThatHasPassed)
{
    const std::vector<std::uint8_t> picture = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    for (const auto& [fps, duration] : {std::pair(0, 333333), std::pair(60, 166666)}) {
        m_script.now += 5s;
        m_script.samples.clear();
        ASSERT_TRUE(m_recorder.open(m_path, 2, 2, fps));
        std::vector<LONGLONG> times;
        for (const auto wait : {0ns, 1'000'000'150ns}) {
            m_script.now += wait;
            m_recorder.writeFrame(picture.data());
            const auto& sample = m_script.samples.back();
            sample->GetSampleTime(&times.emplace_back());
            LONGLONG value = 0;
            sample->GetSampleDuration(&value);
            EXPECT_EQ(value, duration);
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
        EXPECT_TRUE(m_recorder.close());
    }
}

TEST_F(Mp4RecorderScripted, LeavesNoFileWhenOpeningFails)
{
    for (const char* failing : {"AddStream", "SetInputMediaType", "BeginWriting"}) {
        m_script.failing = failing;
        EXPECT_FALSE(m_recorder.open(m_path, 64, 48, 30)) << failing;
        EXPECT_FALSE(m_recorder.isOpen());
        EXPECT_TRUE(m_folder.empty()) << failing;
    }
    m_script.failing.clear();
    m_script.fragments = false;
    m_script.containers.clear();
    open();
    EXPECT_THAT(m_script.containers, ElementsAre(MFTranscodeContainerType_FMPEG4, GUID_NULL));
}

TEST_F(Mp4RecorderScripted, EndsWhenTheWriterTakesNothingAnyMoreAndTellsWhenTheEndIsMissing)
{
    open();
    m_script.failing = "WriteSample";
    for (const auto wait : {0ms, 999ms}) {
        m_script.now += wait;
        write();
        EXPECT_TRUE(m_recorder.isOpen());
    }
    m_script.failing.clear();
    write();
    m_script.failing = "WriteSample";
    m_script.now += 10s; // a pause of the video is no failure
    write();
    EXPECT_TRUE(m_recorder.isOpen());
    m_script.now += 1s;
    write();
    EXPECT_FALSE(m_recorder.isOpen());
    EXPECT_FALSE(m_recorder.close());
    EXPECT_EQ(m_script.finished, 1) << "what is there is kept";
    EXPECT_TRUE(std::filesystem::exists(m_path));

    open();
    m_script.failing = "Finalize";
    write();
    EXPECT_FALSE(m_recorder.close());
}

TEST_F(Mp4RecorderScripted, LeavesPicturesOutWhileTheEncoderIsFarBehind)
{
    open();
    const struct
    {
        DWORD waitingBytes;
        QWORD received;
        QWORD encoded;
        std::uint64_t dropped;
        const char* failing = "";
    } rows[] = {
        {128U << 20, 0, 0, 0},           {(128U << 20) + 1, 0, 0, 1}, {~0U, 0, 0, 1},
        {0, 20'000, 9'078, 0},                              // pictures of 12 kB
        {0, 20'000, 9'077, 1},           {0, 20'000, 0, 0}, // does not tell
        {~0U, 0, 0, 0, "GetStatistics"},
    };
    for (const auto& row : rows) {
        m_script.failing = row.failing;
        m_script.statistics.dwByteCountQueued = row.waitingBytes;
        m_script.statistics.qwNumSamplesReceived = row.received;
        m_script.statistics.qwNumSamplesEncoded = row.encoded;
        const auto before = m_recorder.droppedPictures();
        write();
        EXPECT_EQ(m_recorder.droppedPictures() - before, row.dropped);
    }
    EXPECT_EQ(m_script.samples.size(), 4);
    m_recorder.close();
    EXPECT_EQ(m_recorder.droppedPictures(), 3);
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
