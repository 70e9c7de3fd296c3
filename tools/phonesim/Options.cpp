#include "tools/phonesim/Options.h"

#include "pairing/PairingUri.h"
#include "phone/Protocol.h"
#include "tools/phonesim/ExitCode.h"
#include "tools/phonesim/OptionHelp.h"
#include "tools/phonesim/OptionReader.h"

#include <QCommandLineParser>

namespace pevrix {

namespace {

constexpr int kMaxFps = 240;
constexpr int kMaxBitrateKbps = 200'000;
constexpr int kMaxPhones = 100; // fewer than a USB bus has addresses

void readUri(OptionReader& reader, Options& options)
{
    const auto uri = parsePairingUri(reader.string("uri"));
    if (!uri) {
        reader.complain(
            QStringLiteral("--uri is not a pairing URI: \"%1\"").arg(reader.string("uri")));
        return;
    }
    options.token = uri->token;
    for (const QString& text : uri->endpoints) {
        if (const auto endpoint = parsePairingEndpoint(text)) {
            options.endpoints.append({endpoint->address.toString(), endpoint->port});
        }
    }
    if (options.endpoints.isEmpty()) {
        reader.complain(QStringLiteral("the pairing URI names no endpoint to connect to"));
    }
}

void readWhere(OptionReader& reader, Options& options)
{
    if (reader.isSet("uri")) {
        if (reader.isSet("host") || reader.isSet("port")) {
            reader.complain(QStringLiteral("--uri already says where to connect: leave --host and "
                                           "--port out"));
        }
        readUri(reader, options);
    } else {
        const int port = reader.integer("port", 1, 65535);
        options.endpoints.append({reader.string("host"), static_cast<quint16>(port)});
    }
    if (reader.isSet("token") && reader.isSet("token-file")) {
        reader.complain(QStringLiteral("--token and --token-file exclude each other"));
    }
    if (reader.isSet("token")) {
        options.token = reader.string("token");
    }
    options.tokenFile = reader.string("token-file");
}

constexpr const char* kUsbOptions[] = {
    "usbmux-port",       "phones",
    "network-attached",  "attach-after",
    "detach-after",      "attach-again-after",
    "daemon-dies-after", "daemon-returns-after",
    "refuse-connects",   "corrupt-length",
};

// The PC comes to a phone on a cable and tells it the token.
constexpr const char* kNetworkOptions[] = {"uri", "host", "port", "token", "token-file"};

void readUsb(OptionReader& reader, Options& options)
{
    for (const char* name : kNetworkOptions) {
        if (reader.isSet(name)) {
            reader.complain(
                QStringLiteral("with --usbmux the PC comes to the phone: leave --%1 out")
                    .arg(QString::fromLatin1(name)));
        }
    }
    UsbOptions& usb = options.usb.emplace();
    usb.port = static_cast<quint16>(reader.integer("usbmux-port", 0, 65535));
    usb.phones = reader.integer("phones", 1, kMaxPhones);
    usb.networkAttached = reader.isSet("network-attached");
    usb.attachAfter = reader.optionalSeconds("attach-after");
    usb.detachAfter = reader.optionalSeconds("detach-after");
    usb.attachAgainAfter = reader.optionalSeconds("attach-again-after");
    usb.daemonDiesAfter = reader.optionalSeconds("daemon-dies-after");
    usb.daemonReturnsAfter = reader.optionalSeconds("daemon-returns-after");
    usb.refusedConnects = reader.integer("refuse-connects", 0, 1'000'000);
    usb.corruptLength = reader.isSet("corrupt-length");
    if (usb.attachAgainAfter && !usb.detachAfter) {
        reader.complain(QStringLiteral("--attach-again-after needs --detach-after"));
    }
    if (usb.daemonReturnsAfter && !usb.daemonDiesAfter) {
        reader.complain(QStringLiteral("--daemon-returns-after needs --daemon-dies-after"));
    }
    if (usb.phones > 1 && reader.isSet("dump")) {
        reader.complain(QStringLiteral("--dump takes the bytes of one phone: leave --phones out"));
    }
}

// Network or cable.
void readTransport(OptionReader& reader, Options& options)
{
    if (reader.isSet("usbmux")) {
        readUsb(reader, options);
        return;
    }
    for (const char* name : kUsbOptions) {
        if (reader.isSet(name)) {
            reader.complain(QStringLiteral("--%1 needs --usbmux").arg(QString::fromLatin1(name)));
        }
    }
    readWhere(reader, options);
}

void readVideo(OptionReader& reader, VideoOptions& video)
{
    video.input = reader.string("input");
    const bool fromFile = !video.input.isEmpty();
    if (fromFile && (reader.isSet("size") || reader.isSet("bitrate"))) {
        reader.complain(QStringLiteral("--input has its own size and bit rate: leave --size and "
                                       "--bitrate out"));
    }
    video.size = reader.size("size");
    video.fps = fromFile && !reader.isSet("fps") ? 0 : reader.integer("fps", 1, kMaxFps);
    video.bitrateKbps = reader.integer("bitrate", 50, kMaxBitrateKbps);
    video.keyframeInterval = reader.integer("keyframe-interval", 1, 100'000);
    video.noise = reader.integer("noise", 0, Pattern::kMaxNoise);
    video.unpaced = reader.isSet("unpaced");
    video.ignoreActive = reader.isSet("ignore-active");
}

LeaveMode readLeave(OptionReader& reader)
{
    const QString text = reader.string("leave");
    if (text == u"bye") {
        return LeaveMode::Bye;
    }
    if (text == u"reset") {
        return LeaveMode::Reset;
    }
    if (text == u"vanish") {
        return LeaveMode::Vanish;
    }
    if (text != u"close") {
        reader.complain(
            QStringLiteral("--leave must be close, bye, reset or vanish, not \"%1\"").arg(text));
    }
    return LeaveMode::Close;
}

void readPlan(OptionReader& reader, ConnectionPlan& plan)
{
    if (reader.isSet("frames")) {
        plan.frames = reader.integer("frames", 1, std::numeric_limits<int>::max());
    }
    plan.leaveAfter = reader.optionalSeconds("leave-after");
    plan.leave = readLeave(reader);
    plan.stallAfter = reader.optionalSeconds("stall-after");
    plan.stallFor = reader.optionalSeconds("stall-for");
    plan.resizeAfter = reader.optionalSeconds("resize-after");
    plan.thumbnailInterval = reader.positiveSeconds("thumbnail-interval");
    if (reader.isSet("resize-to")) {
        plan.resizeTo = reader.size("resize-to");
    }
    if (plan.stallFor && !plan.stallAfter) {
        reader.complain(QStringLiteral("--stall-for needs --stall-after"));
    }
    if (plan.resizeAfter.has_value() != reader.isSet("resize-to")) {
        reader.complain(QStringLiteral("--resize-after and --resize-to belong together"));
    }
    if (plan.resizeAfter && reader.isSet("input")) {
        reader.complain(QStringLiteral("--input cannot change its size: leave --resize-after out"));
    }
    if (reader.isSet("malformed")) {
        plan.malformed = malformedNamed(reader.string("malformed"));
        if (plan.malformed == Malformed::None) {
            reader.complain(QStringLiteral("--malformed has no kind \"%1\" (--help lists them)")
                                .arg(reader.string("malformed")));
        }
    }
}

Options readOptions(OptionReader& reader)
{
    Options options;
    readTransport(reader, options);
    options.wait = reader.seconds("wait");
    options.identity = {reader.string("device-id"), reader.string("name"), reader.string("model"),
                        reader.string("os")};
    readVideo(reader, options.video);
    readPlan(reader, options.plan);
    options.reconnects = reader.integer("reconnect", 0, 1'000'000);
    options.reconnectDelay = reader.seconds("reconnect-delay");
    options.duration = reader.positiveSeconds("duration");
    options.dumpFile = reader.string("dump");
    options.quiet = reader.isSet("quiet");
    return options;
}

} // namespace

ParsedOptions parseOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(arguments)) {
        return {{}, false, parser.errorText()};
    }
    if (parser.isSet(QStringLiteral("help"))) {
        return {{}, true, parser.helpText()};
    }
    OptionReader reader(parser);
    Options options = readOptions(reader);
    if (!parser.positionalArguments().isEmpty()) {
        reader.complain(QStringLiteral("unexpected argument \"%1\"")
                            .arg(parser.positionalArguments().constFirst()));
    }
    if (!reader.error().isEmpty()) {
        return {{}, false, reader.error()};
    }
    return {options, false, {}};
}

} // namespace pevrix
