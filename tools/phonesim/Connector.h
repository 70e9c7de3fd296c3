#pragma once

#include "tools/phonesim/Options.h"

#include <QDeadlineTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

class QTcpSocket;

namespace pevrix {

/// Connects to the first of some endpoints that answers, going round them until its patience ends.
class Connector final : public QObject
{
    Q_OBJECT

public:
    explicit Connector(QList<Endpoint> endpoints, QObject* parent = nullptr);

    /// Every endpoint is tried at least once, whatever `patience` is.
    void start(std::chrono::milliseconds patience);
    void cancel();

Q_SIGNALS:
    /// The receiver takes the socket over by giving it a parent; until then it is this object's
    /// child.
    void connected(QTcpSocket* socket, const QString& where);
    void failed(const QString& reason);

private:
    void tryNext();
    void onConnected();
    void onFailure();
    void dropSocket();

    const QList<Endpoint> m_endpoints;
    qsizetype m_index = 0;
    QDeadlineTimer m_patience;
    QTimer m_timer; // limits one attempt, and is the pause between two rounds
    QTcpSocket* m_socket = nullptr;
    QString m_lastError;
};

} // namespace pevrix
