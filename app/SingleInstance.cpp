#include "app/SingleInstance.h"

#include "app/InstanceChannel.h"
#include "app/Log.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

// From the lock to the socket it is a moment; one that ends may hold the lock for longer.
constexpr auto kPatience = 5s;
// One that is busy with the system's question for rights shows its window afterwards.
constexpr int kAnswerMs = 2000;
constexpr auto kRetryInterval = 50ms;
// What the system gives a started program to come to the front with; desktops need some 50 bytes.
constexpr qint64 kMaxTicketBytes = 512;

} // namespace

SingleInstance::SingleInstance(const QString& folder)
    : m_channel(instanceChannelName(folder))
    , m_lock(folder + u"/instance.lock"_s)
{
    QDir().mkpath(folder);
    m_lock.setStaleLockTime(
        0); // held for days; the lock of a process that is no more is stale anyway
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* const socket = m_server.nextPendingConnection()) {
            onConnection(*socket);
        }
    });
}

bool SingleInstance::claim(bool show)
{
    const QDeadlineTimer deadline(kPatience);
    do {
        if (m_lock.tryLock(0)) {
            listen();
            return true;
        }
        if (m_lock.error() != QLockFile::LockFailedError) {
            qCWarning(
                appLog,
                "Pevrix: the settings folder takes no lock; another Pevrix is not looked for");
            return true;
        }
        if (!show || askForWindow()) {
            qCInfo(appLog, "Pevrix: another Pevrix is running, this one ends");
            return false;
        }
        QThread::sleep(kRetryInterval);
    } while (!deadline.hasExpired());
    qCWarning(appLog,
              "Pevrix: another Pevrix is running but does not answer, this one starts beside it");
    return true;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(m_channel); // a crashed one's
    if (!m_server.listen(m_channel)) {
        qCWarning(appLog, "Pevrix: a second start will not find this one (%s)",
                  qUtf8Printable(m_server.errorString()));
    }
}

bool SingleInstance::askForWindow() const
{
    QLocalSocket socket;
    socket.connectToServer(m_channel);
    if (!socket.waitForConnected(kAnswerMs)) {
        return false;
    }
    socket.write(grantForeground(socket.socketDescriptor()).left(kMaxTicketBytes - 1) + '\n');
    socket.waitForDisconnected(kAnswerMs); // its answer
    return true;
}

void SingleInstance::onConnection(QLocalSocket& socket)
{
    const auto answer = [this, &socket] {
        if (socket.canReadLine() || socket.bytesAvailable() >= kMaxTicketBytes) {
            useForegroundGrant(socket.readLine(kMaxTicketBytes).trimmed());
            Q_EMIT windowAskedFor();
            socket.disconnectFromServer();
        }
    };
    connect(&socket, &QLocalSocket::readyRead, this, answer);
    connect(&socket, &QLocalSocket::disconnected, &socket, &QObject::deleteLater);
    QTimer::singleShot(kPatience, &socket, &QLocalSocket::abort);
    answer(); // what has come already is not told again
}

} // namespace pevrix
