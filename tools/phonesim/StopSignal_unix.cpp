#include "tools/phonesim/StopSignal.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace pevrix {

namespace {

// A signal handler may do little more than write; the event loop reads the other end.
std::array<int, 2> g_pipe{-1, -1};

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(g_pipe[0], &byte, 1);
}

void handle(int signal)
{
    struct sigaction action{};
    action.sa_handler = onSignal;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    ::sigaction(signal, &action, nullptr);
}

} // namespace

StopSignal::StopSignal(QObject* parent)
    : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_pipe.data()) != 0) {
        return; // without it the signals simply end the process
    }
    m_notifier = new QSocketNotifier(g_pipe[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(g_pipe[1], &byte, 1) == 1) {
            Q_EMIT stopWanted();
        }
    });
    handle(SIGINT);
    handle(SIGTERM);
}

StopSignal::~StopSignal()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    delete m_notifier;
    for (int& end : g_pipe) {
        if (end >= 0) {
            ::close(end);
        }
        end = -1;
    }
}

} // namespace pevrix
