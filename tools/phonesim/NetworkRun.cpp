#include "tools/phonesim/NetworkRun.h"

#include "tools/phonesim/Phone.h"

#include <QTcpSocket>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kTokenFileLook = 50ms;
constexpr qint64 kMaxTokenBytes = 4096; // a token is some dozen characters

} // namespace

NetworkRun::NetworkRun(const Options& options, QObject* parent)
    : PhoneRun(options, 1, parent)
    , m_token(options.token)
    , m_connector(options.endpoints)
{
    connect(&m_connector, &Connector::connected, this,
            [this](QTcpSocket* socket, const QString& where) {
                connectPhone(m_seats.front(), socket, where, m_token);
            });
    connect(&m_connector, &Connector::failed, this,
            [this](const QString& reason) { fail(ExitCode::CannotConnect, reason); });
    m_pause.setSingleShot(true);
}

void NetworkRun::begin()
{
    if (m_options.tokenFile.isEmpty()) {
        connectToPc();
    } else {
        readToken();
    }
}

// The program writes its token file some time after it was started, so the file may be missing or
// still empty at the first look.
void NetworkRun::readToken()
{
    QFile file(m_options.tokenFile);
    if (file.open(QIODevice::ReadOnly)) {
        m_token = QString::fromUtf8(file.read(kMaxTokenBytes)).trimmed();
    }
    if (!m_token.isEmpty()) {
        connectToPc();
    } else if (m_clock.durationElapsed() >= m_options.wait) {
        fail(ExitCode::BadUsage, QStringLiteral("no token in \"%1\"").arg(m_options.tokenFile));
    } else {
        pauseBefore(&NetworkRun::readToken, kTokenFileLook);
    }
}

void NetworkRun::connectToPc()
{
    m_connector.start(m_options.wait);
}

void NetworkRun::comeBack(Seat&)
{
    pauseBefore(&NetworkRun::connectToPc, m_options.reconnectDelay);
}

void NetworkRun::pauseBefore(void (NetworkRun::*next)(), std::chrono::milliseconds pause)
{
    m_pause.disconnect(this);
    connect(&m_pause, &QTimer::timeout, this, next);
    m_pause.start(pause);
}

void NetworkRun::halt()
{
    m_connector.cancel();
    m_pause.stop();
}

} // namespace pevrix
