#include "tools/phonesim/Options.h"

#include "tools/phonesim/PatternSource_linux.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cmath>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

constexpr int kMaxFps = 240;
constexpr double kMaxSeconds = 1e6; // eleven days

const QString kDescription =
    u"A simulated phone: connects to the PC, pairs and streams H.264 video until it is stopped.\n"
    "\n"
    "  phonesim --token-file pairing-token.txt\n"
    "  phonesim --token-file pairing-token.txt --size 1920x1080 --fps 60 --stall-after 5\n"
    "  phonesim --usbmux\n"
    "\n"
    "Times count from the moment the PC accepted the phone. Two phones at a time need two names.\n"
    "Exit codes: 0 stopped by SIGINT or SIGTERM, 1 wrong options, 2 no connection, 3 refused by\n"
    "the PC, 4 the connection ended."_s;

[[noreturn]] void complain(const QString& option, const QString& wanted)
{
    std::fprintf(stderr, "phonesim: --%s must be %s\n", qPrintable(option), qPrintable(wanted));
    std::exit(EXIT_FAILURE);
}

int integer(const QCommandLineParser& parser, const QString& name, int lowest, int highest)
{
    bool ok = false;
    const int value = parser.value(name).toInt(&ok);
    if (!ok || value < lowest || value > highest) {
        complain(name, u"a whole number from %1 to %2"_s.arg(lowest).arg(highest));
    }
    return value;
}

Options::Time seconds(const QCommandLineParser& parser, const QString& name)
{
    if (!parser.isSet(name)) {
        return {};
    }
    bool ok = false;
    const double value = parser.value(name).toDouble(&ok);
    if (!ok || !(value >= 0 && value <= kMaxSeconds)) {
        complain(name, u"a number of seconds"_s);
    }
    return std::chrono::milliseconds(std::llround(value * 1000));
}

QSize size(const QCommandLineParser& parser, const QString& name)
{
    const QStringList sides = parser.value(name).split(u'x');
    const QSize size = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
    for (const int side : {size.width(), size.height()}) {
        if (side < PatternSource::kMinSide || side > PatternSource::kMaxSide || side % 2 != 0) {
            complain(name,
                     u"WIDTHxHEIGHT, even and from %1 to %2 pixels"_s.arg(PatternSource::kMinSide)
                         .arg(PatternSource::kMaxSide));
        }
    }
    return size;
}

} // namespace

Options readOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(kDescription);
    parser.addHelpOption();
    parser.addOptions({
        {u"host"_s, u"The PC to connect to."_s, u"HOST"_s, u"127.0.0.1"_s},
        {u"port"_s, u"The PC's port."_s, u"PORT"_s, QString::number(kDefaultPort)},
        {u"token-file"_s, u"The file with the pairing token; waits until it is there."_s,
         u"FILE"_s},
        {u"usbmux"_s, u"Be a phone on a cable: play the usbmux daemon and wait for the PC."_s},
        {u"usbmux-port"_s, u"The daemon's port on 127.0.0.1; 0: any free one."_s, u"PORT"_s,
         u"27015"_s},
        {u"name"_s, u"The phone's name."_s, u"NAME"_s, u"Simulated phone"_s},
        {u"size"_s, u"Picture size."_s, u"WxH"_s, u"1280x720"_s},
        {u"fps"_s, u"Pictures a second."_s, u"N"_s, u"30"_s},
        {u"stall-after"_s, u"Stop the video after S seconds; the connection stays alive."_s,
         u"S"_s},
        {u"stall-for"_s, u"Go on with a stalled video after S seconds."_s, u"S"_s},
        {u"resize-after"_s, u"Change to --resize-to after S seconds."_s, u"S"_s},
        {u"resize-to"_s, u"The new picture size, as of a phone that turns."_s, u"WxH"_s,
         u"720x1280"_s},
    });
    parser.process(application);
    if (!parser.positionalArguments().isEmpty()) {
        std::fprintf(stderr, "phonesim: unexpected argument \"%s\"\n",
                     qPrintable(parser.positionalArguments().constFirst()));
        std::exit(EXIT_FAILURE);
    }
    return {.usbmux = parser.isSet(u"usbmux"_s),
            .usbmuxPort = static_cast<quint16>(integer(parser, u"usbmux-port"_s, 0, 65535)),
            .host = parser.value(u"host"_s),
            .port = static_cast<quint16>(integer(parser, u"port"_s, 1, 65535)),
            .tokenFile = parser.value(u"token-file"_s),
            .name = parser.value(u"name"_s),
            .size = size(parser, u"size"_s),
            .fps = integer(parser, u"fps"_s, 1, kMaxFps),
            .stallAfter = seconds(parser, u"stall-after"_s),
            .stallFor = seconds(parser, u"stall-for"_s),
            .resizeAfter = seconds(parser, u"resize-after"_s),
            .resizeTo = size(parser, u"resize-to"_s)};
}

} // namespace pevrix
