#include "app/CaptureOptions.h"

#include <algorithm>
#include <string_view>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

constexpr int kMinSide = 200;
constexpr int kMaxSide = 16384; // beyond what a window or a texture can be
constexpr int kMinDelayMs = 200;

// The argument after the option's name.
std::optional<QString> valueOf(QLatin1StringView option, const QStringList& arguments)
{
    const qsizetype index = arguments.indexOf(option);
    if (index < 0 || index + 1 >= arguments.size()) {
        return std::nullopt;
    }
    return arguments[index + 1];
}

int sideFrom(const QString& text, int fallback)
{
    const int side = text.toInt();
    return side < kMinSide || side > kMaxSide ? fallback : side;
}

QSize sizeFrom(const QString& text, QSize fallback)
{
    const qsizetype cross = text.indexOf(u'x');
    if (cross < 0) {
        return fallback;
    }
    return {sideFrom(text.first(cross), fallback.width()),
            sideFrom(text.sliced(cross + 1), fallback.height())};
}

} // namespace

std::optional<CaptureOptions> parseCaptureOptions(const QStringList& arguments)
{
    if (!arguments.contains("--shot"_L1)) {
        return std::nullopt;
    }
    CaptureOptions options;
    options.size = sizeFrom(valueOf("--shot"_L1, arguments).value_or(QString()), options.size);
    options.output = valueOf("--out"_L1, arguments).value_or(QString());
    options.view = valueOf("--shot-view"_L1, arguments).value_or(QString());
    options.phone = valueOf("--shot-active"_L1, arguments).value_or(QString());
    const int delay = valueOf("--shot-delay"_L1, arguments).value_or(QString()).toInt();
    if (delay >= kMinDelayMs) {
        options.delay = std::chrono::milliseconds(delay);
    }
    if (const auto value = valueOf("--shot-theme"_L1, arguments)) {
        const int theme = value->toInt();
        if (theme >= 0 && theme <= 2) {
            options.theme = theme;
        }
    }
    return options;
}

bool isHelpRequested(int argc, const char* const* argv)
{
    return std::any_of(argv, argv + argc, [](const char* argument) {
        return std::string_view(argument) == "--help" || std::string_view(argument) == "-h";
    });
}

bool isTrayStart(const QStringList& arguments)
{
    return arguments.contains("--tray"_L1) && !arguments.contains("--shot"_L1);
}

const char* usageText()
{
    return R"(Usage: pevrix [OPTIONS]

Turns a phone into a webcam: shows a code for the phone to scan, then its video, which other
programs see as a camera.

  --lang CODE            language of this run: en, fr, es, de, it, pt, ru, tr, zh_CN or ja
  --tray                 start in the notification area, without a window

While one Pevrix runs, starting another one brings the first one's window to the front.

Picture of the window, for documentation (the program ends when it is taken):
  --shot [WIDTHxHEIGHT]  take a picture, of a window of this size (540x640)
  --out FILE             where it goes (a dated file in the folder Pevrix of your pictures)
  --shot-view VIEW       with a dialog open: settings, language or addphone
  --shot-active NAME     with the video of the phone of this name, once it is there
  --shot-delay MS        when it is taken at the latest (4000)
  --shot-theme N         0 as the system, 1 light, 2 dark

  --help                 this text
)";
}

} // namespace pevrix
