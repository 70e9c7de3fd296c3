#include "usb/UsbMuxClient.h"

#include "usb/MuxPacket.h"
#include "usb/Plist.h"
#include "usb/TunnelAttempt.h"

#include <QNetworkProxy>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

// A USB bus has no more addresses: whoever announces more phones is no usbmux daemon.
constexpr qsizetype kMaxDevices = 127;

// A tunnel outlives the announcement of its phone, so there may be more tunnels than devices. The
// limit keeps a faulty daemon from using up the program's sockets.
constexpr qsizetype kMaxTunnels = 2 * kMaxDevices;

// The device a message is about. An id that is missing or no 32-bit number could never be asked for
// again, so that such a message is worth nothing.
std::optional<int> deviceIdOf(const QVariantMap& message)
{
    const QVariant id = message.value(u"DeviceID"_s);
    if (id.typeId() != QMetaType::LongLong || id.toLongLong() < 0 ||
        id.toLongLong() > std::numeric_limits<int>::max()) {
        return std::nullopt;
    }
    return static_cast<int>(id.toLongLong());
}

} // namespace

UsbMuxClient::UsbMuxClient(QObject* parent)
    : UsbMuxClient(UsbMuxOptions(), parent)
{}

UsbMuxClient::UsbMuxClient(const UsbMuxOptions& options, QObject* parent)
    : QObject(parent)
    , m_options(options)
{
    m_reconnectTimer.setInterval(options.reconnectInterval);
    m_tunnelTimer.setInterval(options.tunnelInterval);
    connect(&m_reconnectTimer, &QTimer::timeout, this, &UsbMuxClient::connectToDaemon);
    connect(&m_tunnelTimer, &QTimer::timeout, this, &UsbMuxClient::openMissingTunnels);
    connect(&m_listenSocket, &QTcpSocket::connected, this, &UsbMuxClient::listen);
    connect(&m_listenSocket, &QTcpSocket::readyRead, this, &UsbMuxClient::readAnnouncements);
    connect(&m_listenSocket, &QTcpSocket::errorOccurred, this, &UsbMuxClient::loseDaemon);
}

UsbMuxClient::~UsbMuxClient() = default;

void UsbMuxClient::start()
{
    if (m_state == State::Idle) {
        connectToDaemon();
    }
}

void UsbMuxClient::connectToDaemon()
{
    if (m_listenSocket.state() != QAbstractSocket::UnconnectedState) {
        return;
    }
    m_reconnectTimer.stop();
    m_received.clear();
    m_state = State::Connecting;
    connectSocket(m_listenSocket);
}

void UsbMuxClient::noteUsbBye(QTcpSocket* socket)
{
    if (const auto tunnel = m_tunnels.constFind(socket); tunnel != m_tunnels.cend()) {
        m_byes.insert(*tunnel);
    }
}

void UsbMuxClient::listen()
{
    sendMessage(m_listenSocket, listenRequest());
    m_state = State::Listening;
}

void UsbMuxClient::readAnnouncements()
{
    m_received += m_listenSocket.readAll();
    while (const std::optional<QVariantMap> message = takeMessage(m_received)) {
        handleMessage(*message);
    }
}

void UsbMuxClient::handleMessage(const QVariantMap& message)
{
    const QString type = message.value(u"MessageType"_s).toString();
    if (type == "Result"_L1) {
        handleListenResult(message);
    } else if (type == "Attached"_L1) {
        handleAttached(message);
    } else if (type == "Detached"_L1) {
        handleDetached(message);
    }
}

void UsbMuxClient::handleListenResult(const QVariantMap& message)
{
    if (!isSuccess(message)) {
        return;
    }
    m_tunnelTimer.start();
    if (std::exchange(m_state, State::Available) != State::Available) {
        Q_EMIT availabilityChanged(true);
    }
}

void UsbMuxClient::handleAttached(const QVariantMap& message)
{
    const QVariantMap properties = message.value(u"Properties"_s).toMap();
    const std::optional<int> id =
        deviceIdOf(message.contains(u"DeviceID"_s) ? message : properties);
    if (!id || properties.value(u"ConnectionType"_s).toString() != "USB"_L1) {
        return;
    }
    if (m_devices.contains(*id) || m_devices.size() < kMaxDevices) {
        m_devices.insert(*id, Device());
        openTunnel(*id);
    }
}

void UsbMuxClient::handleDetached(const QVariantMap& message)
{
    if (const std::optional<int> id = deviceIdOf(message)) {
        m_devices.remove(*id);
        m_byes.remove(*id);
        dropAttempt(*id);
    }
}

void UsbMuxClient::loseDaemon()
{
    const bool wasAvailable = available();
    m_state = State::Waiting;
    m_tunnelTimer.stop();
    m_listenSocket.abort();
    m_received.clear();
    m_devices.clear();
    m_byes.clear();
    while (!m_attempts.empty()) {
        drop(*m_attempts.back());
    }
    m_reconnectTimer.start();
    if (wasAvailable) {
        Q_EMIT availabilityChanged(false);
    }
}

void UsbMuxClient::openMissingTunnels()
{
    if (!available()) {
        return;
    }
    for (const auto& [id, device] : m_devices.asKeyValueRange()) {
        if (!device.tunnelled && !m_byes.contains(id)) {
            openTunnel(id);
        }
    }
}

// A connection on this machine may fail, and so drop the attempt, before connectSocket() returns.
void UsbMuxClient::openTunnel(int deviceId)
{
    const qsizetype tunnels = m_tunnels.size() + std::ssize(m_attempts);
    if (hasAttempt(deviceId) || tunnels >= kMaxTunnels) {
        return;
    }
    auto* socket = new QTcpSocket(this);
    TunnelAttempt& attempt = *m_attempts.emplace_back(std::make_unique<TunnelAttempt>());
    attempt.socket = socket;
    attempt.deviceId = deviceId;
    connect(socket, &QTcpSocket::connected, this,
            [this, socket, deviceId] { sendMessage(*socket, connectRequest(deviceId)); });
    connect(socket, &QTcpSocket::readyRead, this, [this, &attempt] { readReply(attempt); });
    connect(socket, &QTcpSocket::errorOccurred, this, [this, &attempt] { drop(attempt); });
    connectSocket(*socket);
}

void UsbMuxClient::readReply(TunnelAttempt& attempt)
{
    switch (attempt.readReply()) {
    case TunnelAttempt::Reply::None:
        break;
    case TunnelAttempt::Reply::Accepted:
        handOver(attempt);
        break;
    case TunnelAttempt::Reply::Refused:
        drop(attempt);
        break;
    }
}

void UsbMuxClient::handOver(TunnelAttempt& attempt)
{
    const std::unique_ptr<TunnelAttempt> taken = take(attempt);
    QTcpSocket* socket = taken->socket;
    socket->disconnect(this);
    m_devices[taken->deviceId].tunnelled = true;
    m_tunnels.insert(socket, taken->deviceId);
    connect(socket, &QObject::destroyed, this, &UsbMuxClient::forgetTunnel);
    Q_EMIT tunnelReady(socket);
}

// A phone that was announced a second time may have a newer tunnel that is still alive.
void UsbMuxClient::forgetTunnel(const QObject* socket)
{
    const int id = m_tunnels.take(socket);
    const auto device = m_devices.find(id);
    if (device != m_devices.end()) {
        device->tunnelled = std::ranges::find(m_tunnels, id) != m_tunnels.end();
    }
}

bool UsbMuxClient::hasAttempt(int deviceId) const
{
    return std::ranges::any_of(
        m_attempts, [deviceId](const auto& attempt) { return attempt->deviceId == deviceId; });
}

void UsbMuxClient::dropAttempt(int deviceId)
{
    const auto attempt = std::ranges::find(m_attempts, deviceId, &TunnelAttempt::deviceId);
    if (attempt != m_attempts.end()) {
        drop(**attempt);
    }
}

// Runs within the socket's own signals too, so that the socket is deleted later.
void UsbMuxClient::drop(TunnelAttempt& attempt)
{
    const std::unique_ptr<TunnelAttempt> taken = take(attempt);
    taken->socket->disconnect(this);
    taken->socket->abort();
    taken->socket->deleteLater();
}

std::unique_ptr<TunnelAttempt> UsbMuxClient::take(const TunnelAttempt& attempt)
{
    const auto at = std::ranges::find(m_attempts, &attempt, &std::unique_ptr<TunnelAttempt>::get);
    std::unique_ptr<TunnelAttempt> taken = std::move(*at);
    m_attempts.erase(at);
    return taken;
}

// Never through a proxy: the daemon is on this machine.
void UsbMuxClient::connectSocket(QTcpSocket& socket)
{
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(m_options.address, m_options.port, QIODevice::ReadWrite);
}

void UsbMuxClient::sendMessage(QTcpSocket& socket, const QVariantMap& message)
{
    const QByteArray payload = buildPlist(message);
    socket.write(buildMuxHeader(payload.size(), m_nextTag++));
    socket.write(payload);
}

} // namespace pevrix
