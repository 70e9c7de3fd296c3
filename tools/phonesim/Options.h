#pragma once

#include "tools/phonesim/Malformed.h"

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace pevrix {

/// Where a PC may listen.
struct Endpoint
{
    QString host;
    quint16 port = 0;
};

/// How the phone ends a connection.
enum class LeaveMode
{
    Close,  ///< everything sent is delivered, then the socket is closed (FIN)
    Bye,    ///< a bye message; the PC closes
    Reset,  ///< the connection is torn down with a TCP reset; what is on the way may get lost
    Vanish, ///< the phone falls silent and leaves the socket open, as when it leaves the network
};

/// What the phone says of itself in its hello.
struct PhoneIdentity
{
    QString deviceId;
    QString name;
    QString model;
    QString os;
};

/// The video that is sent.
struct VideoOptions
{
    QString input; ///< file to send; empty: the generated pattern
    QSize size;
    int fps = 0; ///< 0: the rate of the input file
    int bitrateKbps = 0;
    int keyframeInterval = 0; ///< in frames
    int noise = 0;            ///< of the generated picture
    bool unpaced = false;
    bool ignoreActive = false;
};

/// What happens during one connection. Times count from the moment the PC accepted the connection;
/// an absent value means never.
struct ConnectionPlan
{
    std::optional<qint64> frames; ///< leave after so many video frames
    std::optional<std::chrono::milliseconds> leaveAfter;
    LeaveMode leave = LeaveMode::Close;
    std::optional<std::chrono::milliseconds> stallAfter;
    std::optional<std::chrono::milliseconds> stallFor; ///< absent: until the end
    std::optional<std::chrono::milliseconds> resizeAfter;
    QSize resizeTo;
    std::optional<std::chrono::milliseconds> thumbnailInterval; ///< absent: no thumbnails
    Malformed malformed = Malformed::None;
};

/// Phones on a cable: the usbmux daemon that is played, and what happens to it and to them. An
/// absent time means that it does not happen.
struct UsbOptions
{
    using Time = std::optional<std::chrono::milliseconds>;

    quint16 port = 0; ///< of the daemon; 0: any free one
    int phones = 1;
    bool networkAttached = false;
    Time attachAfter;        ///< since the PC first listened; absent: attached from the beginning
    Time detachAfter;        ///< since the PC accepted the phone
    Time attachAgainAfter;   ///< since it was detached
    Time daemonDiesAfter;    ///< since the PC first listened
    Time daemonReturnsAfter; ///< since it died
    int refusedConnects = 0;
    bool corruptLength = false;
};

/// Everything that the command line says.
struct Options
{
    std::optional<UsbOptions> usb; ///< set: the PC comes to the phone
    QList<Endpoint> endpoints;     ///< tried in this order
    QString token;
    QString tokenFile;                ///< when set, the token is read from there
    std::chrono::milliseconds wait{}; ///< patience with the token file and with the PC
    PhoneIdentity identity;
    VideoOptions video;
    ConnectionPlan plan;
    int reconnects = 0;
    std::chrono::milliseconds reconnectDelay{};
    std::optional<std::chrono::milliseconds> duration; ///< of the whole run; absent: no end
    QString dumpFile;
    bool quiet = false;
};

/// Either options, or a text to print: the help (to standard output, not a failure), or what is
/// wrong with the command line (to standard error).
struct ParsedOptions
{
    std::optional<Options> options;
    bool helpWanted = false;
    QString text;
};

/// Reads a command line; `arguments` begins with the program's name. Reads no file.
[[nodiscard]] ParsedOptions parseOptions(const QStringList& arguments);

} // namespace pevrix
