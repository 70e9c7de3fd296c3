// camreader: a program that reads a camera, for trying the camera library without a browser.
#include "tools/camreader/CameraGraph_win.h"
#include "tools/camreader/Options.h"
#include "tools/camreader/ThisProcess_win.h"
#include "tools/camreader/Witness_win.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace pevrix {

namespace {

// Of 255. Layouts with 8 bits of luma and chroma are within 2.
constexpr int kMostColourDifference = 3;
constexpr int kMostBarBrightness = 3;
constexpr int kMostBoxDifference = 2; // pixels

int fail(const std::string& reason)
{
    std::printf("failed: %s\n", reason.c_str());
    return kNotRight;
}

double seconds(std::int64_t microseconds)
{
    return static_cast<double>(microseconds) / 1e6;
}

double milliseconds(std::int64_t microseconds)
{
    return static_cast<double>(microseconds) / 1e3;
}

const char* kindName(PictureKind kind)
{
    switch (kind) {
    case PictureKind::Live:
        return "live";
    case PictureKind::Torn:
        return "torn";
    case PictureKind::Other:
        return "other";
    case PictureKind::None:
        break;
    }
    return "none";
}

void printUse()
{
    const ProcessUse use = processUse();
    std::printf(" handles=%zu memory_kb=%zu\n", use.handles, use.privateKilobytes);
}

int listCommand()
{
    for (const Device& device : listDevices()) {
        std::printf("camera name=\"%s\" description=\"%s\" path=\"%s\"\n", device.name.c_str(),
                    device.description.c_str(), device.path.c_str());
    }
    return kOk;
}

std::string openCamera(const ReaderOptions& options, CameraGraph& graph,
                       std::vector<VideoFormat>& formats)
{
    const std::vector<Device> devices = listDevices();
    const auto device = std::ranges::find(devices, options.camera, &Device::name);
    if (device == devices.end()) {
        return "there is no camera of the name " + options.camera;
    }
    const std::string error = graph.open(*device);
    return error.empty() ? graph.listFormats(formats) : error;
}

int formatsCommand(const ReaderOptions& options)
{
    Watcher watcher;
    CameraGraph graph(watcher);
    std::vector<VideoFormat> formats;
    if (const std::string error = openCamera(options, graph, formats); !error.empty()) {
        return fail(error);
    }
    for (const VideoFormat& format : formats) {
        std::printf("format %s %dx%d rate=%.2f\n", layoutName(format.layout).data(), format.width,
                    format.height, format.rate());
    }
    return kOk;
}

// Adds up what comes until there were enough live pictures, or too much time has passed.
WatchedInterval await(Watcher& watcher, int live)
{
    constexpr std::int64_t kPatience = 4'000'000;
    const std::int64_t end = sharedMicroseconds() + kPatience;
    WatchedInterval all;
    while (all.live < live && sharedMicroseconds() < end) {
        Sleep(10);
        const WatchedInterval interval = watcher.takeInterval();
        all.pictures += interval.pictures;
        all.live += interval.live;
        all.torn += interval.torn;
        all.backward += interval.backward;
        all.timeBackward += interval.timeBackward;
        all.worst = {std::max(all.worst.colours, interval.worst.colours),
                     std::max(all.worst.bars, interval.worst.bars),
                     std::max(all.worst.box, interval.worst.box)};
    }
    return all;
}

std::string judge(const WatchedInterval& seen, int wanted)
{
    if (seen.live < wanted) {
        return "too few live pictures";
    }
    if (seen.worst.colours > kMostColourDifference) {
        return "wrong colours";
    }
    if (seen.worst.bars > kMostBarBrightness || seen.worst.box > kMostBoxDifference) {
        return "wrong bars";
    }
    return seen.torn + seen.backward + seen.timeBackward > 0 ? "wrong order" : std::string();
}

// Connects, looks and disconnects.
bool checkFormat(CameraGraph& graph, Watcher& watcher, std::size_t index, const VideoFormat& format)
{
    constexpr int kPictures = 8;
    if (format.layout == RawLayout::None) {
        std::printf("format %zu is not consistent: FAILED\n", index);
        return false;
    }
    std::string error = graph.connect(index);
    if (error.empty()) {
        error = graph.run();
    }
    WatchedInterval seen;
    if (error.empty()) {
        seen = await(watcher, kPictures);
        error = graph.stop();
    }
    const std::string parting = graph.disconnect();
    error = error.empty() ? parting : error;
    error = error.empty() ? judge(seen, kPictures) : error;
    std::printf("checked %s %dx%d pictures=%d live=%d torn=%d backward=%d colours=%d bars=%d box=%d"
                "%s%s\n",
                layoutName(format.layout).data(), format.width, format.height, seen.pictures,
                seen.live, seen.torn, seen.backward, seen.worst.colours, seen.worst.bars,
                seen.worst.box, error.empty() ? "" : ": FAILED: ", error.c_str());
    watcher.restart();
    return error.empty();
}

int checkCommand(const ReaderOptions& options)
{
    int failures = 0;
    for (int round = 0; round < options.rounds; ++round) {
        Watcher watcher;
        CameraGraph graph(watcher);
        std::vector<VideoFormat> formats;
        if (const std::string error = openCamera(options, graph, formats); !error.empty()) {
            return fail(error);
        }
        for (std::size_t index = 0; index < formats.size(); ++index) {
            failures += checkFormat(graph, watcher, index, formats[index]) ? 0 : 1;
        }
        failures += formats.empty() ? 1 : 0;
        std::printf("round=%d formats=%zu failures=%d short=%d", round + 1, formats.size(),
                    failures, graph.shortSamples());
        printUse();
    }
    return failures == 0 ? kOk : kNotRight;
}

void printChanges(Watcher& watcher)
{
    for (const WatchedChange& change : watcher.takeChanges()) {
        std::printf("clock=%.6f now=%s source=%dx%d\n", seconds(change.time), kindName(change.kind),
                    change.width, change.height);
    }
}

void printInterval(const WatchedInterval& seen, int shortSamples,
                   const std::vector<std::int64_t>* witness)
{
    const std::int64_t slowest = seen.latencies.empty() ? 0 : std::ranges::max(seen.latencies);
    std::printf("clock=%.6f pictures=%d changed=%d live=%d other=%d repeated=%d skipped=%d "
                "backward=%d torn=%d "
                "time_backward=%d short=%d gap_ms=%.1f latency_ms=%.2f latency_max_ms=%.2f "
                "colours=%d bars=%d box=%d",
                seconds(sharedMicroseconds()), seen.pictures, seen.changed, seen.live, seen.other,
                seen.repeated, seen.skipped, seen.backward, seen.torn, seen.timeBackward,
                shortSamples, milliseconds(seen.longestGap), milliseconds(median(seen.latencies)),
                milliseconds(slowest), seen.worst.colours, seen.worst.bars, seen.worst.box);
    if (witness) {
        std::printf(" witness_ms=%.2f witness_max_ms=%.2f", milliseconds(median(*witness)),
                    milliseconds(witness->empty() ? 0 : std::ranges::max(*witness)));
    }
    for (const Rgb& colour : seen.probes) {
        std::printf(" probe=%d,%d,%d", colour.red, colour.green, colour.blue);
    }
    printUse();
}

void watch(const ReaderOptions& options, const CameraGraph& graph, Watcher& watcher)
{
    const std::unique_ptr<WitnessReader> witness =
        options.witness ? std::make_unique<WitnessReader>() : nullptr;
    const auto interval = static_cast<std::int64_t>(options.interval * 1e6);
    const std::int64_t start = sharedMicroseconds();
    const std::int64_t end = start + static_cast<std::int64_t>(options.seconds * 1e6);
    std::int64_t next = start + interval;
    while (options.seconds <= 0 || sharedMicroseconds() < end) {
        Sleep(20);
        printChanges(watcher);
        if (sharedMicroseconds() >= next) {
            next += interval;
            const std::vector<std::int64_t> delays =
                witness ? witness->takeDelays() : std::vector<std::int64_t>();
            printInterval(watcher.takeInterval(), graph.shortSamples(),
                          witness ? &delays : nullptr);
        }
    }
}

int readCommand(const ReaderOptions& options)
{
    Watcher watcher(options.probes);
    CameraGraph graph(watcher);
    std::vector<VideoFormat> formats;
    std::string error = openCamera(options, graph, formats);
    if (!error.empty()) {
        return fail(error);
    }
    const auto chosen = std::ranges::find_if(formats, [&](const VideoFormat& format) {
        return (options.layout == RawLayout::None || format.layout == options.layout) &&
               (options.width == 0 ||
                (format.width == options.width && format.height == options.height));
    });
    if (chosen == formats.end()) {
        return fail("the camera does not offer this format");
    }
    error = graph.connect(static_cast<std::size_t>(chosen - formats.begin()));
    if (error.empty()) {
        error = graph.run();
    }
    if (!error.empty()) {
        return fail(error);
    }
    std::printf("clock=%.6f reading %s %dx%d bits=%zu process=%lu\n", seconds(sharedMicroseconds()),
                layoutName(chosen->layout).data(), chosen->width, chosen->height, 8 * sizeof(void*),
                GetCurrentProcessId());
    watch(options, graph, watcher);
    error = graph.stop();
    if (error.empty()) {
        error = graph.disconnect();
    }
    return error.empty() ? kOk : fail(error);
}

int run(const ReaderOptions& options)
{
    if (FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {
        return fail("COM does not start");
    }
    const int result = options.command == "list"      ? listCommand()
                       : options.command == "formats" ? formatsCommand(options)
                       : options.command == "check"   ? checkCommand(options)
                                                      : readCommand(options);
    CoUninitialize();
    return result;
}

} // namespace

} // namespace pevrix

int main(int argc, char** argv)
{
    using namespace pevrix;
    return runProgram({argv, static_cast<std::size_t>(argc)}, kReaderUsage, readOptions, run);
}
