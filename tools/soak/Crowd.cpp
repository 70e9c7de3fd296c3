#include "tools/soak/Crowd.h"

#include "phone/Protocol.h"
#include "tools/doubles/RawPeer.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <limits>
#include <list>
#include <optional>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kAnswerLimit = 10s;
constexpr auto kSilenceLimit = 15s;
constexpr auto kLargestTime = 3s; // before the program takes them for gone
constexpr QSize kSmall(640, 480);

double msOf(const QElapsedTimer& clock)
{
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

// Says hello and waits for the answer; how long that took.
std::optional<double> greet(const RawPeer& peer, const QByteArray& hello)
{
    QElapsedTimer clock;
    clock.start();
    peer.write(hello, 0);
    while (!peer.hasBytes()) {
        if (peer.ended() || clock.durationElapsed() > kAnswerLimit) {
            return {};
        }
        std::this_thread::sleep_for(1ms);
    }
    return msOf(clock);
}

} // namespace

QByteArray Address::hello(const QString& device) const
{
    const QJsonObject words{{u"v"_s, kProtocolVersion},
                            {u"token"_s, token},
                            {u"deviceId"_s, device},
                            {u"name"_s, device}};
    return buildMessage(MessageType::Hello, QJsonDocument(words).toJson(QJsonDocument::Compact));
}

QByteArray streamOf(const Clips::Clip& clip, std::size_t units)
{
    QByteArray stream;
    for (std::size_t i = 0; i < std::min(units, clip.units.size()); ++i) {
        const AccessUnit& unit = clip.units[i];
        const auto size = std::ssize(unit.bytes);
        const auto head =
            encodeVideoFrameHeader(static_cast<qint64>(i) * 33'333, unit.keyframe, size);
        stream.append(head.data(), std::ssize(head));
        stream.append(reinterpret_cast<const char*>(unit.bytes.data()), size);
    }
    return stream;
}

void breakConnections(const Address& address, const Clips& clips, int count)
{
    const QByteArray info =
        buildMessage(MessageType::StreamInfo, R"({"width":640,"height":480,"fps":30})");
    const QByteArray video = streamOf(clips.of(kSmall), 3);
    for (int i = 0; i < count; ++i) {
        const QByteArray opening = address.hello(u"broken-%1"_s.arg(i % 50)) + info;
        const QByteArray stream = opening + video;
        const std::array<qsizetype, 5> ends = {stream.size(), stream.size(), stream.size() - 3,
                                               opening.size() + 100, opening.size() + 4};
        const RawPeer peer(address.port);
        peer.write(stream.first(ends[static_cast<std::size_t>(i) % ends.size()]), 0);
        if (i % 5 == 1) {
            peer.resetOnClose();
        }
    }
}

void connectOnly(const Address& address, int count)
{
    for (int i = 0; i < count; ++i) {
        const RawPeer peer(address.port);
    }
}

Silence fallSilent(const Address& address, const Clips& clips, int count)
{
    Silence result;
    const QByteArray video = streamOf(clips.of(kSmall), 3);
    std::list<RawPeer> peers;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < count; ++i) {
        const RawPeer& peer = peers.emplace_back(address.port);
        peer.write(address.hello(u"silent-%1"_s.arg(i)) + video, 0);
    }
    // Half of them come anew while the program still waits for the first connection.
    std::vector<RawPeer> again;
    for (int i = 0; i < count / 2; ++i) {
        if (const auto ms =
                greet(again.emplace_back(address.port), address.hello(u"silent-%1"_s.arg(i)))) {
            result.readmitted.ms.push_back(*ms);
        }
    }
    again.clear();
    while (!peers.empty() && clock.durationElapsed() < kSilenceLimit) {
        std::this_thread::sleep_for(5ms);
        std::erase_if(peers, [&](const RawPeer& peer) {
            peer.discard();
            if (!peer.ended()) {
                return false;
            }
            result.dropped.ms.push_back(msOf(clock));
            return true;
        });
    }
    return result;
}

int holdConnections(const Address& address, int count, bool trickle, std::atomic<bool>& there,
                    const std::atomic<bool>& stop)
{
    const QByteArray bytes = address.hello(u"slow"_s);
    std::vector<RawPeer> peers;
    peers.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        peers.emplace_back(address.port);
    }
    there = true;
    for (qsizetype sent = 0; !stop; ++sent) {
        for (const RawPeer& peer : peers) {
            if (trickle && sent < 6) { // never a whole hello
                peer.write(bytes.sliced(sent, 1));
            }
        }
        for (int wait = 0; wait < 20 && !stop; ++wait) {
            std::this_thread::sleep_for(50ms);
        }
    }
    return static_cast<int>(std::ranges::count_if(peers, [](const RawPeer& peer) {
        peer.discard();
        return !peer.ended();
    }));
}

void flood(const Address& address, int count, const std::atomic<bool>& stop)
{
    // More than is worked off while it lasts, and not so much that it takes minutes afterwards.
    const QByteArray stream = buildMessage(MessageType::StreamInfo, "{}").repeated(60'000);
    std::vector<Flooder> flooders;
    for (int i = 0; i < count; ++i) {
        flooders.push_back({RawPeer(address.port)});
        flooders.back().peer.keepLittle(); // what waits would be worked off long after the flood
    }
    while (!stop) {
        const auto pushed = std::ranges::count_if(
            flooders, [&](Flooder& flooder) { return flooder.push(stream, false); });
        std::this_thread::sleep_for(pushed > 0 ? 0ms : 1ms);
    }
}

qint64 push(const Address& address, const Clips& clips, const std::atomic<bool>& counting,
            const std::atomic<bool>& stop)
{
    const QByteArray stream =
        streamOf(clips.of(Clips::kSizes.front()), std::numeric_limits<std::size_t>::max());
    const RawPeer peer(address.port);
    (void)greet(peer, address.hello(u"pusher"_s));
    qint64 counted = 0;
    qsizetype offset = 0;
    while (!stop) {
        peer.discard();
        const ssize_t sent = peer.write(QByteArrayView(stream).sliced(offset));
        if (sent < 0) {
            break;
        }
        counted += counting ? sent : 0;
        offset = (offset + sent) % stream.size();
        if (sent == 0) {
            std::this_thread::sleep_for(1ms);
        }
    }
    return counted;
}

int sendLargest(const Address& address, int count)
{
    QByteArray message = buildMessage(MessageType::Thumbnail, QByteArray(kMaxPayload, 'x'));
    message.chop(1);
    std::list<Flooder> phones;
    for (int i = 0; i < count; ++i) {
        Flooder& phone = phones.emplace_back(Flooder{.peer = RawPeer(address.port)});
        (void)greet(phone.peer, address.hello(u"large %1"_s.arg(i)));
    }
    QElapsedTimer clock;
    clock.start();
    while (clock.durationElapsed() < kLargestTime && !std::ranges::all_of(phones, &Flooder::done)) {
        for (Flooder& phone : phones) {
            (void)phone.push(message, false);
            phone.peer.discard();
        }
        std::this_thread::sleep_for(1ms);
    }
    return static_cast<int>(
        std::ranges::count_if(phones, [](const Flooder& phone) { return phone.peer.ended(); }));
}

} // namespace pevrix
