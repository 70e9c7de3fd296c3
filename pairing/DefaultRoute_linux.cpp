#include "pairing/DefaultRoute.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <linux/rtnetlink.h>
#include <netinet/in.h>
#include <optional>
#include <span>
#include <sys/socket.h>
#include <unistd.h>

namespace pevrix {
namespace {

class FileDescriptor
{
public:
    explicit FileDescriptor(int fd)
        : m_fd(fd)
    {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor()
    {
        if (m_fd >= 0) {
            close(m_fd);
        }
    }
    [[nodiscard]] int get() const { return m_fd; }

private:
    int m_fd;
};

// RTM_GETROUTE with the destination as its only attribute; the layout has no padding.
struct RouteQuestion
{
    nlmsghdr header{};
    rtmsg route{};
    rtattr attribute{};
    in_addr destination{};
};
static_assert(sizeof(RouteQuestion) == NLMSG_LENGTH(sizeof(rtmsg)) + RTA_LENGTH(sizeof(in_addr)));

RouteQuestion makeQuestion(in_addr_t destination)
{
    RouteQuestion question;
    question.header.nlmsg_len = sizeof question;
    question.header.nlmsg_type = RTM_GETROUTE;
    question.header.nlmsg_flags = NLM_F_REQUEST;
    question.route.rtm_family = AF_INET;
    question.route.rtm_dst_len = 32;
    question.attribute.rta_type = RTA_DST;
    question.attribute.rta_len = RTA_LENGTH(sizeof(in_addr));
    question.destination.s_addr = htonl(destination);
    return question;
}

// Copies a T out of the front of `bytes`, which need not be aligned.
template <typename T>
std::optional<T> readFront(std::span<const char> bytes)
{
    if (bytes.size() < sizeof(T)) {
        return std::nullopt;
    }
    T value;
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

// The outgoing interface of an RTM_NEWROUTE answer; 0 for any other answer (no route is an error).
// The answer is an nlmsghdr, an rtmsg and attributes: an rtattr each, its payload, and padding to
// the next multiple of 4.
int outgoingInterface(std::span<const char> answer)
{
    const auto header = readFront<nlmsghdr>(answer);
    constexpr std::size_t kFixedSize = NLMSG_LENGTH(sizeof(rtmsg));
    if (!header || header->nlmsg_type != RTM_NEWROUTE || answer.size() < kFixedSize) {
        return 0;
    }
    std::span<const char> rest = answer.subspan(kFixedSize);
    while (const auto attribute = readFront<rtattr>(rest)) {
        if (attribute->rta_len < sizeof(rtattr)) {
            return 0;
        }
        if (attribute->rta_type == RTA_OIF) {
            return readFront<int>(rest.subspan(sizeof(rtattr))).value_or(0);
        }
        rest = rest.subspan(std::min<std::size_t>(RTA_ALIGN(attribute->rta_len), rest.size()));
    }
    return 0;
}

} // namespace

int defaultRouteInterfaceIndex()
{
    const FileDescriptor kernel(socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE));
    const RouteQuestion question = makeQuestion(0x08080808);
    if (kernel.get() < 0 ||
        send(kernel.get(), &question, sizeof question, 0) != ssize_t{sizeof question}) {
        return 0;
    }
    // The kernel answers within send(), so the answer is there or never comes.
    std::array<char, 4096> buffer{};
    const ssize_t size = recv(kernel.get(), buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (size <= 0) {
        return 0;
    }
    return outgoingInterface(std::span(buffer).first(static_cast<std::size_t>(size)));
}

} // namespace pevrix
