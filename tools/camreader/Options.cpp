#include "tools/camreader/Options.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace pevrix {

const char* const kReaderUsage =
    "Usage: camreader COMMAND [OPTIONS]\n"
    "\n"
    "Reads a camera of this PC as browsers do, through DirectShow.\n"
    "\n"
    "  list             every camera: name, description, device path; loads none\n"
    "  formats          what the camera offers\n"
    "  check            connects in every format in turn and compares camsender's test\n"
    "                   pictures with what they should be\n"
    "  read             reads until it is ended, and prints what came\n"
    "\n"
    "  --camera NAME    which camera (Pevrix)\n"
    "  --format NAME    read: YUY2, I420, NV12 or RGB24 (the camera's first)\n"
    "  --size WxH       read: the size (the camera's first of that format)\n"
    "  --seconds S      read: ends after S seconds\n"
    "  --interval S     read: prints every S seconds (0.5)\n"
    "  --probe X,Y      read: prints the mean colour there, in thousandths of the picture's\n"
    "                   width and height; may be repeated\n"
    "  --witness        read: prints how long camsender takes to wake this process and this one\n"
    "                   to copy a picture, beside the way of its pictures\n"
    "  --rounds N       check: all of it N times\n"
    "\n"
    "'read' prints, with a clock that it shares with camsender: 'now' when something else is\n"
    "shown, and every interval the pictures that came, those that changed, live, repeated,\n"
    "skipped, out of order (backward) or made of two (torn), the longest gap, the latency of\n"
    "those that were new, the greatest difference of a colour, of a bar from black and of an\n"
    "edge from its place (pixels), and the handles and memory of this process.\n"
    "\n"
    "Exit code: 0 all right, 1 not, 2 wrong arguments\n";

namespace {

std::optional<Area> parseProbe(std::string_view text)
{
    constexpr int kProbeSize = 16;
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) {
        return std::nullopt;
    }
    const auto x = parseNumber(text.substr(0, comma));
    const auto y = parseNumber(text.substr(comma + 1));
    if (!x || !y || *x >= 1000 || *y >= 1000) {
        return std::nullopt;
    }
    return Area{static_cast<int>(*x), static_cast<int>(*y), kProbeSize, kProbeSize};
}

bool takeNumber(std::string_view text, double& to)
{
    const auto number = parseNumber(text);
    to = number.value_or(0);
    return number.has_value();
}

bool takeRounds(std::string_view text, int& rounds)
{
    const auto number = parseNumber(text);
    rounds = static_cast<int>(std::min(number.value_or(0), 1'000'000.0));
    return rounds >= 1;
}

bool takeOption(ReaderOptions& options, std::string_view name, std::string_view value)
{
    if (name == "--camera") {
        options.camera = value;
        return true;
    }
    if (name == "--format") {
        const auto* found = std::ranges::find(kRawLayouts, value, layoutName);
        options.layout = found != kRawLayouts.end() ? *found : RawLayout::None;
        return found != kRawLayouts.end();
    }
    if (name == "--probe") {
        const auto probe = parseProbe(value);
        options.probes.push_back(probe.value_or(Area{}));
        return probe.has_value();
    }
    return (name == "--size" && parseSize(value, options.width, options.height)) ||
           (name == "--seconds" && takeNumber(value, options.seconds)) ||
           (name == "--interval" && takeNumber(value, options.interval)) ||
           (name == "--rounds" && takeRounds(value, options.rounds));
}

bool isCommand(std::string_view text)
{
    return text == "list" || text == "formats" || text == "check" || text == "read";
}

} // namespace

std::optional<double> parseNumber(std::string_view text)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !(number >= 0) ||
        number > 1e9) {
        return std::nullopt;
    }
    return number;
}

bool parseSize(std::string_view text, int& width, int& height)
{
    constexpr int kLargest = 8192;
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) {
        return false;
    }
    width = static_cast<int>(parseNumber(text.substr(0, cross)).value_or(0));
    height = static_cast<int>(parseNumber(text.substr(cross + 1)).value_or(0));
    return width >= 1 && width <= kLargest && height >= 1 && height <= kLargest;
}

std::optional<ReaderOptions> readOptions(std::span<char* const> arguments)
{
    if (arguments.empty() || !isCommand(arguments[0])) {
        return std::nullopt;
    }
    ReaderOptions options;
    options.command = arguments[0];
    for (auto rest = arguments.subspan(1); !rest.empty();) {
        const std::string_view name = rest.front();
        rest = rest.subspan(1);
        if (name == "--witness") {
            options.witness = true;
            continue;
        }
        if (rest.empty() || !takeOption(options, name, rest.front())) {
            return std::nullopt;
        }
        rest = rest.subspan(1);
    }
    return options;
}

} // namespace pevrix
