#include "tools/phonesim/OptionHelp.h"

#include "phone/Protocol.h"
#include "tools/phonesim/Malformed.h"

#include <QCommandLineParser>

namespace pevrix {

namespace {

struct OptionText
{
    const char* name;
    const char* value; // null for a switch
    const char* help;
    const char* initial = nullptr;
};

constexpr OptionText kOptions[] = {
    // Where and who.
    {"host", "HOST", "The PC to connect to.", "127.0.0.1"},
    {"port", "PORT", "The PC's port.", "8788"},
    {"uri", "URI", "Connect as the pairing URI says, trying its endpoints in order."},
    {"token", "TOKEN", "The pairing token (overrides the one of --uri)."},
    {"token-file", "FILE", "Read the pairing token from FILE, waiting for the file to appear."},
    {"wait", "S", "How long to wait for the token file, and for the PC to listen.", "5"},
    {"device-id", "ID", "The phone's identifier.", "phonesim-1"},
    {"name", "NAME", "The phone's display name.", "Simulated phone"},
    {"model", "MODEL", "The phone's model.", "Phone Simulator"},
    {"os", "VERSION", "The phone's system version.", "1.0"},
    // On a cable.
    {"usbmux", nullptr,
     "Be a phone on a USB cable: play the usbmux daemon on 127.0.0.1 and wait for the PC."},
    {"usbmux-port", "PORT", "The daemon's port; 0: any free one, which is printed.", "27015"},
    {"phones", "N", "So many phones, told apart by a number at the end of their names.", "1"},
    {"network-attached", nullptr, "The daemon says that it found the phone in the network."},
    {"attach-after", "S", "Attach the phone S seconds after the PC first listens to the daemon."},
    {"detach-after", "S", "Detach it S seconds after the PC accepted it."},
    {"attach-again-after", "S", "Attach it again after S seconds, each time it was detached."},
    {"refuse-connects", "N", "Refuse the first N connections to the phone.", "0"},
    {"daemon-dies-after", "S", "The daemon dies S seconds after the PC first listens to it."},
    {"daemon-returns-after", "S", "It comes back after S seconds, once."},
    {"corrupt-length", nullptr, "The first PC that listens gets a header with a corrupt length."},
    // Video.
    {"size", "WxH", "Picture size.", "1280x720"},
    {"fps", "N", "Frames a second, 1 to 240 (an --input file has its own).", "30"},
    {"bitrate", "KBPS", "Bit rate of the generated picture in kbit/s.", "6000"},
    {"keyframe-interval", "N", "A keyframe at least every N frames (generated picture).", "60"},
    {"noise", "LEVEL", "Sensor noise in the generated picture, 0 to 16; fills the bit rate.", "2"},
    {"input", "FILE", "Send FILE (.h264, .mp4) in a loop instead of the generated picture."},
    {"unpaced", nullptr, "Send as fast as the PC takes it; timestamps still follow --fps."},
    {"ignore-active", nullptr, "Send video even when the PC has not asked for it."},
    {"thumbnail-interval", "S", "A thumbnail at the start and every S seconds; 0: none.", "5"},
    {"dump", "FILE", "Also write every H.264 byte sent (Annex B) to FILE."},
    // The run.
    {"duration", "S", "End after S seconds (of the whole run); 0: run until stopped.", "0"},
    {"frames", "N", "Leave after N video frames."},
    {"leave-after", "S", "Leave after S seconds."},
    {"leave", "HOW",
     "How to leave, whenever that is: close; bye (bye message, the PC closes); reset (TCP reset); "
     "vanish (silence on an open socket until the PC drops it).",
     "close"},
    {"reconnect", "N", "After a connection ended come back, N times.", "0"},
    {"reconnect-delay", "S", "Pause before coming back.", "0.5"},
    {"quiet", nullptr, "Print nothing but the summary and errors."},
    // Faults.
    {"stall-after", "S", "Stop the video after S seconds; the connection stays alive."},
    {"stall-for", "S", "Resume a stalled video after S seconds."},
    {"resize-after", "S", "Change to --resize-to after S seconds."},
    {"resize-to", "WxH", "The new picture size."},
    {"malformed", "KIND", "Break the protocol in one of the ways listed above."},
};

QString malformedHelp()
{
    QString text = QStringLiteral("Kinds of --malformed:\n");
    for (const MalformedKind& kind : malformedKinds()) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(QString::fromLatin1(kind.name), -21)
                    .arg(QString::fromLatin1(kind.description));
    }
    return text + QStringLiteral("The hello- kinds replace the hello; the others follow every %1th "
                                 "video frame.\n")
                      .arg(kMalformedEveryFrames);
}

QString description()
{
    return QStringLiteral(
               "A simulated phone: connects to the PC, pairs and streams H.264 video.\n"
               "\n"
               "Times of --leave-after, --stall-after and --resize-after count from the moment the "
               "PC\naccepted the phone, --duration from the first connection. With --reconnect, "
               "everything\nbut --duration applies to each connection anew.\n"
               "\n"
               "On a cable the phone waits for the PC without limit. It is gone after its last\n"
               "connection: use --reconnect for more. After a bye the PC comes again only when "
               "the\n"
               "phone was detached and attached. A connection that ends with the cable or with "
               "the\n"
               "daemon is no failure and does not count.\n"
               "\n"
               "Examples:\n"
               "  phonesim --token-file pairing-token.txt\n"
               "  phonesim --uri 'pevrix://pair?v=1&pc=DESK&t=TOKEN&h=192.168.1.42:8788' "
               "--size 1920x1080 --fps 60\n"
               "  phonesim --input clip.mp4 --frames 300 --unpaced --dump sent.h264\n"
               "  phonesim --leave reset --leave-after 0.2 --reconnect 100 --reconnect-delay 0\n"
               "  phonesim --usbmux --detach-after 5 --attach-again-after 2\n"
               "\n"
               "Exit codes:\n"
               "  0  done as asked, or stopped by SIGINT or SIGTERM\n"
               "  2  bad usage: wrong options, or a file named in them cannot be used\n"
               "  3  cannot connect, or the hello got no answer; the daemon's port is taken\n"
               "  4  refused: the PC answered with an error, which is printed\n"
               "  5  the connection was lost: the PC closed it, or the network did\n"
               "  6  the encoder or the input file failed\n"
               "With --reconnect the last connection decides, with --phones the first phone that "
               "failed.\n"
               "\n") +
           malformedHelp();
}

} // namespace

void declareOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(description());
    parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this help.")});
    for (const OptionText& text : kOptions) {
        QString help = QString::fromLatin1(text.help);
        if (text.initial) {
            help += QStringLiteral(" Default: %1.").arg(QString::fromLatin1(text.initial));
        }
        QCommandLineOption option(QString::fromLatin1(text.name), help,
                                  QString::fromLatin1(text.value));
        if (text.initial) {
            option.setDefaultValue(QString::fromLatin1(text.initial));
        }
        parser.addOption(option);
    }
}

} // namespace pevrix
