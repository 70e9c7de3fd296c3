// camsender: feeds the camera library with numbered test pictures, in the place of Pevrix.
#include "softcam/softcam.h"
#include "tools/camreader/Options.h"
#include "tools/camreader/ThisProcess_win.h"
#include "tools/camreader/Witness_win.h"

#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>
#include <windows.h>

namespace pevrix {

namespace {

constexpr const char* kUsage =
    "Usage: camsender --library FILE [--rate N] [--first N] STEP...\n"
    "\n"
    "Loads the camera library and sends test pictures for camreader, each with its number, its\n"
    "size, and the time when it was sent.\n"
    "\n"
    "  --library FILE   the softcam.dll to load\n"
    "  --rate N         pictures a second (30)\n"
    "  --first N        number of the first picture (0)\n"
    "  STEP             WxH@S: a camera of this size for S seconds; none@S: no camera for S\n"
    "                   seconds. Each step has a camera of its own.\n"
    "\n"
    "Prints each step, whenever scIsConnected changes, and the handles and memory of this\n"
    "process.\n"
    "Exit code: 0 done, 1 not, 2 wrong arguments\n";

struct Step
{
    int width = 0; // 0: no camera
    int height = 0;
    double seconds = 0;
};

struct SenderOptions
{
    const char* library = nullptr;
    double rate = 30;
    std::uint32_t first = 0;
    std::vector<Step> steps;
};

std::optional<Step> parseStep(std::string_view text)
{
    const std::size_t at = text.find('@');
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    Step step;
    const auto duration = parseNumber(text.substr(at + 1));
    if (!duration ||
        (text.substr(0, at) != "none" && !parseSize(text.substr(0, at), step.width, step.height))) {
        return std::nullopt;
    }
    step.seconds = *duration;
    return step;
}

bool takeOption(SenderOptions& options, std::string_view name, const char* value)
{
    const auto number = parseNumber(value);
    if (name == "--library") {
        options.library = value;
        return true;
    }
    if (name == "--rate" && number && *number > 0) {
        options.rate = *number;
        return true;
    }
    if (name == "--first" && number) {
        options.first = static_cast<std::uint32_t>(*number);
        return true;
    }
    return false;
}

std::optional<SenderOptions> readSenderOptions(std::span<char* const> arguments)
{
    SenderOptions options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string_view argument = arguments[index];
        if (argument.starts_with("--")) {
            if (++index == arguments.size() || !takeOption(options, argument, arguments[index])) {
                return std::nullopt;
            }
        } else if (const auto step = parseStep(argument)) {
            options.steps.push_back(*step);
        } else {
            return std::nullopt;
        }
    }
    return options.library && !options.steps.empty() ? std::optional(options) : std::nullopt;
}

// The library's four functions.
struct CameraLibrary
{
    decltype(&scCreateCamera) create = nullptr;
    decltype(&scDeleteCamera) remove = nullptr;
    decltype(&scSendFrame) send = nullptr;
    decltype(&scIsConnected) isConnected = nullptr;

    [[nodiscard]] bool load(const char* file)
    {
        const HMODULE module = LoadLibraryA(file);
        return module && find(module, "scCreateCamera", create) &&
               find(module, "scDeleteCamera", remove) && find(module, "scSendFrame", send) &&
               find(module, "scIsConnected", isConnected);
    }

private:
    template <typename Function>
    static bool find(HMODULE module, const char* name, Function& function)
    {
        function =
            reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
        return function != nullptr;
    }
};

class Sender
{
public:
    Sender(const CameraLibrary& library, const SenderOptions& options)
        : m_library(library)
        , m_interval(static_cast<std::int64_t>(1e6 / options.rate))
        , m_rate(static_cast<float>(options.rate))
        , m_number(options.first)
        , m_timer(CreateWaitableTimerW(nullptr, TRUE, nullptr))
    {}

    // False when the library makes no camera.
    bool perform(const Step& step)
    {
        std::printf("clock=%.6f step=%dx%d number=%u\n", now(), step.width, step.height, m_number);
        const std::int64_t end =
            sharedMicroseconds() + static_cast<std::int64_t>(step.seconds * 1e6);
        if (step.width == 0) {
            Sleep(static_cast<DWORD>(step.seconds * 1e3));
            return true;
        }
        TestPicture picture(step.width, step.height);
        const scCamera camera = m_library.create(step.width, step.height, m_rate);
        if (!camera) {
            std::printf("failed: no camera\n");
            return false;
        }
        std::int64_t due = sharedMicroseconds();
        while (sharedMicroseconds() < end) {
            send(camera, picture);
            noteConnection(m_library.isConnected(camera) != 0);
            due += m_interval;
            sleepUntil(due);
        }
        m_library.remove(camera);
        return true;
    }

private:
    void send(scCamera camera, TestPicture& picture)
    {
        constexpr std::uint32_t kPicturesPerReport = 15;
        picture.labelBy(m_number++, [] {
            const std::int64_t units = sharedMicroseconds() / (1'000'000 / kStampUnitsPerSecond);
            return static_cast<std::uint32_t>(units);
        });
        m_witness.signal();
        m_library.send(camera, picture.pixels());
        if (m_number % kPicturesPerReport == 0) {
            const ProcessUse use = processUse();
            std::printf("clock=%.6f sent=%u connected=%d handles=%zu memory_kb=%zu\n", now(),
                        m_number, m_connected ? 1 : 0, use.handles, use.privateKilobytes);
        }
    }

    void noteConnection(bool connected)
    {
        if (connected != m_connected) {
            m_connected = connected;
            std::printf("clock=%.6f connected=%d\n", now(), connected ? 1 : 0);
        }
    }

    void sleepUntil(std::int64_t due) const
    {
        const std::int64_t left = due - sharedMicroseconds();
        if (left <= 0) {
            return;
        }
        LARGE_INTEGER time;
        time.QuadPart = -10 * left; // relative, in 100 ns
        if (SetWaitableTimer(m_timer.get(), &time, 0, nullptr, nullptr, FALSE)) {
            WaitForSingleObject(m_timer.get(), INFINITE);
        }
    }

    static double now() { return static_cast<double>(sharedMicroseconds()) / 1e6; }

    const CameraLibrary& m_library;
    const std::int64_t m_interval;
    const float m_rate;
    std::uint32_t m_number;
    UniqueHandle m_timer;
    WitnessSender m_witness;
    bool m_connected = false;
};

int run(const SenderOptions& options)
{
    CameraLibrary library;
    if (!library.load(options.library)) {
        std::printf("failed: %s is no camera library\n", options.library);
        return kNotRight;
    }
    Sender sender(library, options);
    for (const Step& step : options.steps) {
        if (!sender.perform(step)) {
            return kNotRight;
        }
    }
    return kOk;
}

} // namespace

} // namespace pevrix

int main(int argc, char** argv)
{
    using namespace pevrix;
    return runProgram({argv, static_cast<std::size_t>(argc)}, kUsage, readSenderOptions, run);
}
