#include "tools/phonesim/Connector.h"

#include <QTcpSocket>

#include <utility>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kAttemptLimit = 3s; // an address nobody answers at must not hold up the next one
constexpr auto kRoundPause = 100ms;

} // namespace

Connector::Connector(QList<Endpoint> endpoints, QObject* parent)
    : QObject(parent)
    , m_endpoints(std::move(endpoints))
{
    m_timer.setSingleShot(true);
}

void Connector::start(std::chrono::milliseconds patience)
{
    m_patience.setRemainingTime(patience);
    m_index = 0;
    tryNext();
}

void Connector::cancel()
{
    m_timer.stop();
    dropSocket();
}

void Connector::dropSocket()
{
    if (auto* socket = std::exchange(m_socket, nullptr)) {
        socket->disconnect(this);
        socket->abort();
        socket->deleteLater();
    }
}

void Connector::tryNext()
{
    const Endpoint& endpoint = m_endpoints[m_index];
    m_socket = new QTcpSocket(this);
    connect(m_socket, &QTcpSocket::connected, this, &Connector::onConnected);
    connect(m_socket, &QTcpSocket::errorOccurred, this, [this] {
        m_lastError = m_socket->errorString();
        onFailure();
    });
    m_timer.disconnect(this);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_lastError = QStringLiteral("no answer");
        onFailure();
    });
    m_timer.start(kAttemptLimit);
    m_socket->connectToHost(endpoint.host, endpoint.port);
}

void Connector::onConnected()
{
    m_timer.stop();
    QTcpSocket* socket = std::exchange(m_socket, nullptr);
    socket->disconnect(this);
    const Endpoint& endpoint = m_endpoints[m_index];
    Q_EMIT connected(socket, QStringLiteral("%1:%2").arg(endpoint.host).arg(endpoint.port));
}

void Connector::onFailure()
{
    const Endpoint& endpoint = m_endpoints[m_index];
    m_timer.stop();
    dropSocket();
    m_index = (m_index + 1) % m_endpoints.size();
    if (m_index == 0 && m_patience.hasExpired()) {
        Q_EMIT failed(QStringLiteral("cannot connect to %1:%2: %3")
                          .arg(endpoint.host)
                          .arg(endpoint.port)
                          .arg(m_lastError));
        return;
    }
    m_timer.disconnect(this);
    connect(&m_timer, &QTimer::timeout, this, &Connector::tryNext);
    m_timer.start(m_index == 0 ? kRoundPause : 0ms);
}

} // namespace pevrix
