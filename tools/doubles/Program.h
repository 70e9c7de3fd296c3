#pragma once

#include "tools/doubles/WaitUntil.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace pevrix {

// A command line without quotes, cut at its spaces.
inline QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

// A program that runs from here on, and is killed with its owner if need be.
class Program : public QProcess
{
public:
    explicit Program(
        const QString& program, const QStringList& arguments = {},
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        setProcessEnvironment(environment);
        start(program, arguments);
    }

    ~Program() override { end(); }

    // At once, without a goodbye.
    void end()
    {
        kill();
        waitForFinished();
    }

    // Waits for the end. The exit code; -1 after a crash, or when it does not start or end.
    [[nodiscard]] int awaitExit()
    {
        const bool ended = waitUntil([this] { return state() == NotRunning; });
        return ended && error() == UnknownError && exitStatus() == NormalExit ? exitCode() : -1;
    }

    // All that was printed until now.
    [[nodiscard]] QString output()
    {
        m_output += QString::fromUtf8(readAllStandardOutput());
        return m_output;
    }
    [[nodiscard]] QString errors()
    {
        m_errors += QString::fromUtf8(readAllStandardError());
        return m_errors;
    }

private:
    QString m_output;
    QString m_errors;
};

} // namespace pevrix
