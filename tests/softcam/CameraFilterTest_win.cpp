// The camera library in one process: its filter as programs drive it, without a graph, and its
// sender. What takes several processes, or the registry, is tried by tools/windows/try-camera.
#include "softcam/SharedPictures.h"
#include "softcam/softcam.h"
#include "tools/camreader/SinkFilter_win.h"
#include "tools/camreader/ThisProcess_win.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <cstring>
#include <functional>
#include <thread>

namespace pevrix {
namespace {

using Microsoft::WRL::ComPtr;
using namespace std::chrono_literals;

constexpr CLSID kCameraClass{
    0x276143AA, 0xB755, 0x440E, {0x83, 0x4A, 0x93, 0xCD, 0xEB, 0xCA, 0x33, 0x4B}};

// Readers and senders notice each other within two seconds; a busy machine may add to that.
constexpr auto kPatience = 10s;

template <typename Function>
Function* exported(const char* name)
{
    const auto address = GetProcAddress(GetModuleHandleW(L"softcam.dll"), name);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

ComPtr<IClassFactory> cameraFactory()
{
    ComPtr<IClassFactory> factory;
    exported<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(kCameraClass,
                                                                            IID_PPV_ARGS(&factory));
    return factory;
}

bool canUnload()
{
    return exported<HRESULT WINAPI()>("DllCanUnloadNow")() == S_OK;
}

bool becomes(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    bool met = condition();
    for (; !met && std::chrono::steady_clock::now() < end; met = condition()) {
        std::this_thread::sleep_for(10ms);
    }
    return met;
}

// A camera that sends test pictures 30 times a second.
class Sender
{
public:
    Sender(int width, int height)
        : m_camera(scCreateCamera(width, height, 30))
        , m_picture(width, height)
        , m_thread([this](const std::stop_token& stop) { send(stop); })
    {}
    ~Sender()
    {
        m_thread.request_stop();
        m_thread.join();
        scDeleteCamera(m_camera);
    }
    [[nodiscard]] scCamera camera() const { return m_camera; }

private:
    void send(const std::stop_token& stop)
    {
        for (std::uint32_t number = 0; !stop.stop_requested(); ++number) {
            m_picture.label(number, 0);
            scSendFrame(m_camera, m_picture.pixels());
            std::this_thread::sleep_for(33ms);
        }
    }

    scCamera m_camera;
    TestPicture m_picture;
    std::jthread m_thread;
};

// The camera's filter with a sink at its pin.
class Reader
{
public:
    Reader()
    {
        cameraFactory()->CreateInstance(nullptr, IID_PPV_ARGS(&filter));
        filter->FindPin(L"Capture", &pin);
        pin.As(&config);
        sink.Attach(new SinkFilter(watcher));
    }
    ~Reader()
    {
        filter->Stop();
        sink->Stop();
        disconnect();
    }

    // With the camera's own choice, or with one of its formats.
    HRESULT connect(const AM_MEDIA_TYPE* type = nullptr)
    {
        return pin->Connect(&sink->pin(), type);
    }
    void disconnect()
    {
        pin->Disconnect();
        sink->pin().Disconnect();
    }
    void run()
    {
        sink->Run(0);
        EXPECT_EQ(filter->Pause(), S_OK);
        EXPECT_EQ(filter->Run(0), S_OK);
    }

    // Until the last picture that came is one of a sender of this size, or, of no width, none.
    [[nodiscard]] bool sees(int width)
    {
        return becomes([&] {
            for (const WatchedChange& change : watcher.takeChanges()) {
                m_seen = change.kind == PictureKind::Live ? change.width : 0;
                cards += m_seen == 0 ? 1 : 0;
            }
            return m_seen == width;
        });
    }

    [[nodiscard]] std::vector<UniqueMediaType> types() const
    {
        int count = 0;
        int size = 0;
        EXPECT_EQ(config->GetNumberOfCapabilities(&count, &size), S_OK);
        EXPECT_EQ(size, int{sizeof(VIDEO_STREAM_CONFIG_CAPS)});
        std::vector<UniqueMediaType> all;
        for (int index = 0; index < count; ++index) {
            VIDEO_STREAM_CONFIG_CAPS caps{};
            AM_MEDIA_TYPE* type = nullptr;
            EXPECT_EQ(config->GetStreamCaps(index, &type, reinterpret_cast<BYTE*>(&caps)), S_OK);
            all.emplace_back(type);
        }
        return all;
    }

    int cards = 0; // seen so far
    Watcher watcher;
    ComPtr<IBaseFilter> filter;
    ComPtr<IPin> pin;
    ComPtr<IAMStreamConfig> config;
    ComPtr<SinkFilter> sink;

private:
    int m_seen = -1;
};

// What is allocated now. COM's memory and the C run time's are both in the process's heap.
std::size_t allocatedBytes()
{
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(GetProcessHeap());
    while (HeapWalk(GetProcessHeap(), &entry) != FALSE) {
        bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
    }
    HeapUnlock(GetProcessHeap());
    return bytes;
}

class CameraFilterTest : public testing::Test
{
protected:
    CameraFilterTest() { CoInitializeEx(nullptr, COINIT_MULTITHREADED); }
    ~CameraFilterTest() override { CoUninitialize(); }
};

TEST_F(CameraFilterTest, ReadersOutliveSenders)
{
    std::optional<Reader> first(std::in_place);
    Reader second;
    ASSERT_EQ(first->connect(), S_OK);
    first->run();
    EXPECT_TRUE(first->sees(0)) << "the card";

    std::optional<Sender> sender(std::in_place, 720, 1280);
    EXPECT_TRUE(first->sees(720));
    EXPECT_EQ(scCreateCamera(640, 480, 30), nullptr) << "there is one camera in a session";
    ASSERT_EQ(second.connect(), S_OK);
    second.run();
    EXPECT_TRUE(second.sees(720));

    sender.reset();
    sender.emplace(640, 480);
    EXPECT_TRUE(first->sees(640));
    EXPECT_TRUE(second.sees(640));
    EXPECT_EQ(first->cards, 1);
    EXPECT_EQ(second.cards, 0) << "no card in between";

    first.reset();
    EXPECT_NE(scIsConnected(sender->camera()), 0);
    second.sink->Stop(); // refuses pictures, which ends the stream
    EXPECT_TRUE(becomes([&] { return scIsConnected(sender->camera()) == 0; }));
    static_cast<void>(second.watcher.takeInterval());
    second.run();
    EXPECT_TRUE(becomes([&] { return second.watcher.takeInterval().pictures > 0; }));
}

// What a sender leaves that is killed in the middle of its first words, kept by a reader.
TEST_F(CameraFilterTest, ADirectoryThatIsHalfWrittenIsNoneAndIsRepaired)
{
    scDeleteCamera(scCreateCamera(64, 48, 30));
    const HANDLE section = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              sizeof(SharedDirectory), kDirectoryName);
    ASSERT_NE(section, nullptr);
    void* view = MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0);
    std::memset(view, 0xFF, sizeof(SharedDirectory));

    Reader reader;
    EXPECT_EQ(reader.types().size(), 12U) << "the usual sizes in four layouts each";
    {
        const Sender sender(720, 1280);
        const auto types = reader.types();
        EXPECT_EQ(types.size(), 16U);
        EXPECT_EQ(videoFormat(*types.front()).width, 720);
        ASSERT_EQ(reader.connect(), S_OK);
        reader.run();
        EXPECT_TRUE(reader.sees(720));
    }
    UnmapViewOfFile(view);
    CloseHandle(section);
}

TEST_F(CameraFilterTest, LeavesNothingBehind)
{
    const auto useAll = [] {
        Reader reader;
        for (const UniqueMediaType& type : reader.types()) {
            ASSERT_EQ(reader.connect(type.get()), S_OK);
            reader.run();
            EXPECT_EQ(reader.filter->Stop(), S_OK);
            reader.run();
            EXPECT_EQ(reader.filter->Stop(), S_OK);
            reader.disconnect();
        }
    };
    // A leak grows with every turn; caches of the system only now and then.
    bool grew = true;
    for (int turn = 0; turn < 10 && (grew || turn < 5); ++turn) {
        const std::size_t handles = processUse().handles;
        const std::size_t bytes = allocatedBytes();
        useAll();
        for (int round = 0; round < 40; ++round) {
            const Reader reader;
            scDeleteCamera(scCreateCamera(64, 48, 30));
        }
        grew = processUse().handles > handles || allocatedBytes() > bytes;
    }
    EXPECT_FALSE(grew);
    EXPECT_TRUE(canUnload());
}

TEST_F(CameraFilterTest, KeepsWhatAProgramChoseAndShowsNothingBeforeItRuns)
{
    Reader reader;
    EXPECT_FALSE(canUnload());
    const auto types = reader.types();
    VIDEO_STREAM_CONFIG_CAPS caps{};
    AM_MEDIA_TYPE* type = nullptr;
    EXPECT_EQ(reader.config->GetStreamCaps(-1, &type, reinterpret_cast<BYTE*>(&caps)),
              E_INVALIDARG);

    // Browsers change the rate of a listed format.
    AM_MEDIA_TYPE& chosen = *types[1];
    reinterpret_cast<VIDEOINFOHEADER*>(chosen.pbFormat)->AvgTimePerFrame = 400'000;
    ASSERT_EQ(reader.config->SetFormat(&chosen), S_OK);
    ASSERT_EQ(reader.connect(), S_OK);
    ASSERT_EQ(reader.config->GetFormat(&type), S_OK);
    EXPECT_EQ(videoFormat(*UniqueMediaType(type)).interval, 400'000);

    EXPECT_EQ(reader.connect(), VFW_E_ALREADY_CONNECTED);
    EXPECT_EQ(reader.filter->Pause(), S_OK);
    EXPECT_EQ(reader.config->SetFormat(&chosen), VFW_E_NOT_STOPPED);
    EXPECT_EQ(reader.pin->Disconnect(), VFW_E_NOT_STOPPED);
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(reader.watcher.takeInterval().pictures, 0);
    reader.run();
    EXPECT_TRUE(reader.sees(0));
}

TEST_F(CameraFilterTest, RefusesTypesThatItDoesNotMake)
{
    const Reader reader;
    const auto types = reader.types();
    struct Type
    {
        AM_MEDIA_TYPE type;
        VIDEOINFOHEADER info;
    };
    Type listed{*types.front(), {}};
    std::memcpy(&listed.info, types.front()->pbFormat, sizeof(listed.info));
    std::array<Type, 10> wrong;
    wrong.fill(listed);
    wrong[0].type.majortype = MEDIATYPE_Audio;
    wrong[1].type.subtype = MEDIASUBTYPE_RGB32;
    wrong[2].type.formattype = FORMAT_VideoInfo2;
    wrong[3].type.cbFormat = sizeof(VIDEOINFOHEADER) - 1;
    wrong[4].info.bmiHeader.biCompression ^= 1;
    wrong[5].info.bmiHeader.biWidth = MINLONG;
    wrong[6].info.bmiHeader.biWidth = 8194;
    wrong[7].info.bmiHeader.biWidth = 641; // odd
    wrong[8].info.bmiHeader.biHeight = MINLONG;
    wrong[9].info.rcTarget = {0, 0, 16, 16}; // a part
    const auto answer = [&](Type& type) {
        type.type.pbFormat = reinterpret_cast<BYTE*>(&type.info);
        return reader.pin->QueryAccept(&type.type);
    };
    EXPECT_EQ(answer(listed), S_OK);
    for (std::size_t row = 0; row < wrong.size(); ++row) {
        EXPECT_EQ(answer(wrong[row]), S_FALSE) << row;
        EXPECT_EQ(reader.config->SetFormat(&wrong[row].type), VFW_E_INVALIDMEDIATYPE) << row;
    }
}

} // namespace
} // namespace pevrix
