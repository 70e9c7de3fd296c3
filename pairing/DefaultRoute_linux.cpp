#include "pairing/DefaultRoute.h"

#include <QHostAddress>
#include <QNetworkInterface>

#include <algorithm>
#include <netinet/in.h>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

namespace pevrix {
namespace {

// The address of ours that packets to a public address would come from. Connecting a UDP socket
// sends nothing: the system only chooses a route.
std::optional<QHostAddress> ownAddress()
{
    const int udp = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (udp < 0) {
        return std::nullopt;
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(53);
    address.sin_addr.s_addr = htonl(0x08080808);
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    const bool known = connect(udp, any, size) == 0 && getsockname(udp, any, &size) == 0;
    close(udp);
    return known ? std::optional(QHostAddress(any)) : std::nullopt;
}

} // namespace

int defaultRouteInterfaceIndex()
{
    const std::optional<QHostAddress> own = ownAddress();
    if (!own) {
        return 0;
    }
    const QList<QNetworkInterface> all = QNetworkInterface::allInterfaces();
    const auto found = std::ranges::find_if(all, [&](const QNetworkInterface& candidate) {
        return std::ranges::any_of(candidate.addressEntries(),
                                   [&](const auto& entry) { return entry.ip() == *own; });
    });
    return found == all.end() ? 0 : found->index();
}

} // namespace pevrix
