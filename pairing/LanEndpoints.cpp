#include "pairing/LanEndpoints.h"

#include "pairing/DefaultRoute.h"

#include <QNetworkInterface>

#include <algorithm>
#include <array>
#include <optional>

namespace pevrix {
namespace {

constexpr qsizetype kMaxEndpoints = 4; // More would make the code denser and harder to scan.

// Parts of the names of adapters that lead to a virtual machine or to nothing a phone can reach.
constexpr std::array<QStringView, 8> kVirtualAdapterWords{u"WSL",        u"Hyper-V",  u"vEthernet",
                                                          u"VirtualBox", u"VMware",   u"Docker",
                                                          u"Loopback",   u"Bluetooth"};

// What home and office networks use, the likeliest first. All of 172 is meant, not only the
// private block: some networks use the rest of it as if it were private.
constexpr std::array<QStringView, 3> kLanPrefixes{u"192.168.", u"10.", u"172."};

struct Candidate
{
    std::size_t rank; // position of its prefix in kLanPrefixes
    QString endpoint;
};

bool isVirtual(const LanInterface& adapter)
{
    return std::ranges::any_of(kVirtualAdapterWords, [&](QStringView word) {
        return adapter.name.contains(word, Qt::CaseInsensitive);
    });
}

std::optional<Candidate> makeCandidate(const QHostAddress& address, quint16 port)
{
    if (address.protocol() != QAbstractSocket::IPv4Protocol) {
        return std::nullopt;
    }
    const QString text = address.toString();
    const auto prefix = std::ranges::find_if(
        kLanPrefixes, [&](QStringView candidate) { return text.startsWith(candidate); });
    if (prefix == kLanPrefixes.end()) {
        return std::nullopt; // Also where loopback and link-local addresses end.
    }
    return Candidate{static_cast<std::size_t>(prefix - kLanPrefixes.begin()),
                     text + u':' + QString::number(port)};
}

} // namespace

QList<LanInterface> readLanInterfaces()
{
    QList<LanInterface> result;
    const QList<QNetworkInterface> all = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface& system : all) {
        const QNetworkInterface::InterfaceFlags flags = system.flags();
        LanInterface adapter{.name = system.humanReadableName(),
                             .index = system.index(),
                             .up = flags.testFlag(QNetworkInterface::IsUp),
                             .running = flags.testFlag(QNetworkInterface::IsRunning),
                             .loopback = flags.testFlag(QNetworkInterface::IsLoopBack),
                             .addresses = {}};
        const QList<QNetworkAddressEntry> entries = system.addressEntries();
        for (const QNetworkAddressEntry& entry : entries) {
            adapter.addresses.append(entry.ip());
        }
        result.append(std::move(adapter));
    }
    return result;
}

QStringList rankLanEndpoints(const QList<LanInterface>& interfaces, int bestIndex, quint16 port)
{
    QStringList result;
    QList<Candidate> candidates;
    for (const LanInterface& adapter : interfaces) {
        if (!adapter.up || !adapter.running || adapter.loopback) {
            continue;
        }
        const bool isBest = bestIndex != 0 && adapter.index == bestIndex;
        const bool usable = !isVirtual(adapter);
        for (const QHostAddress& address : adapter.addresses) {
            const auto candidate = makeCandidate(address, port);
            if (!candidate) {
                continue;
            }
            if (isBest && result.isEmpty()) {
                result.append(candidate->endpoint);
            } else if (usable) {
                candidates.append(*candidate);
            }
        }
    }
    std::ranges::stable_sort(candidates, {}, &Candidate::rank);
    for (const Candidate& candidate : candidates) {
        if (result.size() == kMaxEndpoints) {
            break;
        }
        if (!result.contains(candidate.endpoint)) {
            result.append(candidate.endpoint);
        }
    }
    return result;
}

QStringList findLanEndpoints(quint16 port)
{
    return rankLanEndpoints(readLanInterfaces(), defaultRouteInterfaceIndex(), port);
}

} // namespace pevrix
