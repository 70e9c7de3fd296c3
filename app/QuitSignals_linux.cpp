#include "app/QuitSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace pevrix {

namespace {

// A signal handler may do little more than write a byte: the event loop reads it.
int g_wakeUp[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto written = write(g_wakeUp[1], &byte, 1);
}

} // namespace

void quitOnSystemSignals(QCoreApplication& application)
{
    if (pipe2(g_wakeUp, O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(g_wakeUp[0], QSocketNotifier::Read, &application);
    // Not quit(), which would ask the window first: it hides instead of closing.
    QObject::connect(notifier, &QSocketNotifier::activated, &application,
                     [] { QCoreApplication::exit(0); });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(number, &action, nullptr);
    }
}

} // namespace pevrix
