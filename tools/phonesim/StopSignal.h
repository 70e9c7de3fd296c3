#pragma once

#include <QObject>

class QSocketNotifier;

namespace pevrix {

/// Turns SIGINT and SIGTERM into a Qt signal. Only the first one is caught: the next has its usual
/// effect, so that an impatient user can end a phone that takes its time to leave. One object per
/// process.
class StopSignal final : public QObject
{
    Q_OBJECT

public:
    explicit StopSignal(QObject* parent = nullptr);
    ~StopSignal() override;

Q_SIGNALS:
    void stopWanted();

private:
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace pevrix
