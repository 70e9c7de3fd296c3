#pragma once

#include <QByteArrayView>

#include <algorithm>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace pevrix {

// Without a descriptor every call fails like one whose connection is gone.
// NOLINTBEGIN(clang-analyzer-unix.StdCLibraryFunctions)

// A bare socket, for what a well-mannered client cannot do (POSIX). Connects to this machine in
// the constructor, which waits until the system has done so.
class RawPeer
{
public:
    explicit RawPeer(quint16 port)
        : m_fd(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_connected = m_fd >= 0 &&
                      ::connect(m_fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    }
    RawPeer(RawPeer&& other) noexcept
        : m_fd(std::exchange(other.m_fd, -1))
        , m_connected(other.m_connected)
    {}
    ~RawPeer()
    {
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }

    [[nodiscard]] bool connected() const { return m_connected; }

    // How many bytes went out: -1 when the connection is gone, 0 when there is no room now.
    ssize_t write(QByteArrayView bytes, int flags = MSG_DONTWAIT) const
    {
        const ssize_t count = ::send(m_fd, bytes.data(), static_cast<std::size_t>(bytes.size()),
                                     flags | MSG_NOSIGNAL);
        return count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK) ? 0 : count;
    }
    // The connection ends with a reset rather than in good order.
    void resetOnClose() const
    {
        const linger hard{.l_onoff = 1, .l_linger = 0};
        ::setsockopt(m_fd, SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
    }
    // Little waits on this side for the other one to read: an end is seen soon.
    void keepLittle() const
    {
        const int bytes = 32 * 1024;
        ::setsockopt(m_fd, SOL_SOCKET, SO_SNDBUF, &bytes, sizeof bytes);
    }
    // The server has ended the connection.
    [[nodiscard]] bool ended() const
    {
        char byte = 0;
        const ssize_t count = ::recv(m_fd, &byte, 1, MSG_DONTWAIT | MSG_PEEK);
        return count == 0 || (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK);
    }
    // Something came and was not read yet.
    [[nodiscard]] bool hasBytes() const
    {
        char byte = 0;
        return ::recv(m_fd, &byte, 1, MSG_DONTWAIT | MSG_PEEK) > 0;
    }
    // What came so far is read away; ended() then tells of an end behind it.
    void discard() const
    {
        char bytes[4096];
        while (::recv(m_fd, bytes, sizeof bytes, MSG_DONTWAIT) > 0) {
        }
    }

private:
    int m_fd;
    bool m_connected = false;
};

// NOLINTEND(clang-analyzer-unix.StdCLibraryFunctions)

// Sends a stream, each time as much as there is room for.
struct Flooder
{
    RawPeer peer;
    qsizetype offset = 0;
    bool done = false; // the stream went out whole, or the connection is gone

    // Whether anything went out.
    bool push(const QByteArray& stream, bool again)
    {
        const ssize_t sent = done ? 0 : peer.write(QByteArrayView(stream).sliced(offset));
        offset += std::max<ssize_t>(sent, 0);
        done = done || sent < 0 || (offset == stream.size() && !again);
        offset = done || offset < stream.size() ? offset : 0;
        return sent > 0;
    }
};

} // namespace pevrix
