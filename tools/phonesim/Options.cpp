#include "tools/phonesim/Options.h"

#include "pairing/PairingUri.h"
#include "phone/Protocol.h"
#include "tools/phonesim/ExitCode.h"
#include "tools/phonesim/OptionHelp.h"
#include "tools/phonesim/Pattern.h"

#include <QCommandLineParser>

#include <cmath>

namespace pevrix {

namespace {

constexpr double kMaxSeconds = 1e6; // eleven days
constexpr int kMaxFps = 240;
constexpr int kMaxBitrateKbps = 200'000;

// Takes values out of the parser and keeps the first complaint.
class Reader
{
public:
    explicit Reader(const QCommandLineParser& parser)
        : m_parser(parser)
    {}

    [[nodiscard]] QString error() const { return m_error; }
    [[nodiscard]] bool isSet(const char* name) const { return m_parser.isSet(text(name)); }
    [[nodiscard]] QString string(const char* name) const { return m_parser.value(text(name)); }

    void complain(const QString& what)
    {
        if (m_error.isEmpty()) {
            m_error = what;
        }
    }

    int integer(const char* name, int lowest, int highest)
    {
        bool ok = false;
        const int value = string(name).toInt(&ok);
        if (!ok || value < lowest || value > highest) {
            complain(QStringLiteral("--%1 must be a whole number from %2 to %3, not \"%4\"")
                         .arg(text(name))
                         .arg(lowest)
                         .arg(highest)
                         .arg(string(name)));
        }
        return value;
    }

    std::chrono::milliseconds seconds(const char* name)
    {
        bool ok = false;
        const double value = string(name).toDouble(&ok);
        if (!ok || !(value >= 0 && value <= kMaxSeconds)) {
            complain(QStringLiteral("--%1 must be a number of seconds, not \"%2\"")
                         .arg(text(name), string(name)));
            return {};
        }
        return std::chrono::milliseconds(std::llround(value * 1000));
    }

    // Nothing when the option is absent.
    std::optional<std::chrono::milliseconds> optionalSeconds(const char* name)
    {
        return isSet(name) ? std::optional(seconds(name)) : std::nullopt;
    }

    // Zero, like absence, means nothing.
    std::optional<std::chrono::milliseconds> positiveSeconds(const char* name)
    {
        const auto value = string(name).isEmpty() ? std::chrono::milliseconds{} : seconds(name);
        return value.count() > 0 ? std::optional(value) : std::nullopt;
    }

    QSize size(const char* name)
    {
        const QStringList parts = string(name).split(u'x');
        const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
        const auto good = [](int side) {
            return side >= Pattern::kMinSize && side <= Pattern::kMaxSize && side % 2 == 0;
        };
        if (!good(size.width()) || !good(size.height())) {
            complain(QStringLiteral("--%1 must be WIDTHxHEIGHT, even and from %2 to %3 pixels, "
                                    "not \"%4\"")
                         .arg(text(name))
                         .arg(Pattern::kMinSize)
                         .arg(Pattern::kMaxSize)
                         .arg(string(name)));
        }
        return size;
    }

private:
    static QString text(const char* name) { return QString::fromLatin1(name); }

    const QCommandLineParser& m_parser;
    QString m_error;
};

void readUri(Reader& reader, Options& options)
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

void readWhere(Reader& reader, Options& options)
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
    options.wait = reader.seconds("wait");
}

void readVideo(Reader& reader, VideoOptions& video)
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

LeaveMode readLeave(Reader& reader)
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

void readPlan(Reader& reader, ConnectionPlan& plan)
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

Options readOptions(Reader& reader)
{
    Options options;
    readWhere(reader, options);
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
    Reader reader(parser);
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
