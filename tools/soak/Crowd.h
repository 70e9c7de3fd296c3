#pragma once

#include "tools/doubles/WaitUntil.h"
#include "tools/soak/Clips.h"
#include "tools/soak/Verdicts.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <chrono>
#include <future>
#include <utility>

namespace pevrix {

// What others in the network do to the program, with bare sockets. Each of these takes its time: it
// runs beside the thread of the well-mannered phones (inBackground).

// Where the program listens, and what phones say there.
struct Address
{
    quint16 port = 0;
    QString token;

    [[nodiscard]] QByteArray hello(const QString& device) const;
};

// Access units as messages.
[[nodiscard]] QByteArray streamOf(const Clips::Clip& clip, std::size_t units);

// Phones that greet, stream three pictures and are gone, each in another of five ways: in good
// order, with a reset, in the middle of a picture, of a message's body, of its header.
void breakConnections(const Address& address, const Clips& clips, int count);

// Connections that are closed at once.
void connectOnly(const Address& address, int count);

// Phones that fall silent without a goodbye.
struct Silence
{
    Times dropped;    // from the last byte until the program ended the connection
    Times readmitted; // until the same phone, come anew, was greeted
};
[[nodiscard]] Silence fallSilent(const Address& address, const Clips& clips, int count);

// Strangers that hold a connection, one byte a second or none, until told to stop; `there` is set
// when all are connected. How many of them the program still served at the end.
[[nodiscard]] int holdConnections(const Address& address, int count, bool trickle,
                                  std::atomic<bool>& there, const std::atomic<bool>& stop);

// Strangers that send stream descriptions as fast as they are taken.
void flood(const Address& address, int count, const std::atomic<bool>& stop);

// A phone that sends pictures as fast as they are taken. How many bytes it got rid of while
// `counting`.
[[nodiscard]] qint64 push(const Address& address, const Clips& clips,
                          const std::atomic<bool>& counting, const std::atomic<bool>& stop);

// Phones that each send all but the end of a message of the largest size. How many of them the
// program left meanwhile.
[[nodiscard]] int sendLargest(const Address& address, int count);

// The result, with the event loop of this thread running meanwhile: phones that do not answer for
// four seconds are dropped.
template <typename Result>
Result resultOf(std::future<Result>&& future)
{
    (void)waitUntil(
        [&] { return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
        QDeadlineTimer(std::chrono::minutes(5)));
    return future.get();
}

// Runs it on a thread of its own and waits for it in the same way.
template <typename Work>
auto inBackground(Work work)
{
    return resultOf(std::async(std::launch::async, std::move(work)));
}

} // namespace pevrix
