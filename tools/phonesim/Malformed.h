#pragma once

#include "phone/Protocol.h"

#include <QByteArray>
#include <QString>

#include <span>

namespace pevrix {

/// The ways in which the simulated phone can break the protocol. The names that the command line
/// uses for them, and what exactly is sent, are in the table of Malformed.cpp.
enum class Malformed
{
    None = 0,
    // Instead of the hello.
    HelloNotJson,
    HelloNotObject,
    HelloEmpty,
    HelloVersion,
    HelloTextVersion,
    HelloPartialHeader,
    HelloHeaderOnly,
    HelloRandom,
    // Between video frames.
    OversizedHeader,
    ShortFrame,
    EmptyFrame,
    GarbageFrame,
    TruncatedFrame,
    GarbageConfig,
    EmptyConfig,
    BadStreamInfo,
    AbsurdStreamInfo,
    GarbageThumbnail,
    UnknownType,
    SecondHello,
    BigPing,
    CutMessage,
    RandomBytes,
};

/// A row of the table of kinds.
struct MalformedKind
{
    const char* name;        ///< on the command line
    const char* description; ///< for the help
    Malformed kind;
    bool insteadOfHello;   ///< otherwise it is sent between video frames
    bool silentAfterwards; ///< the phone sends nothing more, because the stream is out of step
};

/// The stream kinds are sent after every so many video frames.
inline constexpr int kMalformedEveryFrames = 10;

/// All kinds except None, in the order of the help.
[[nodiscard]] std::span<const MalformedKind> malformedKinds();

/// The row of `kind`; null for None.
[[nodiscard]] const MalformedKind* findMalformed(Malformed kind);

/// The kind of that name; Malformed::None when there is none.
[[nodiscard]] Malformed malformedNamed(const QString& name);

/// The bytes to put on the wire for `kind`. `hello` is the payload of a correct hello and
/// `accessUnit` the last video frame sent (both are the raw material for some kinds), `ptsUsec` its
/// timestamp. The same arguments always give the same bytes.
[[nodiscard]] QByteArray malformedBytes(Malformed kind, const QByteArray& hello,
                                        QByteArrayView accessUnit, qint64 ptsUsec);

} // namespace pevrix
