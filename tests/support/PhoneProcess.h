#pragma once

#include "tests/support/WaitFor.h"

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

// A program that runs while the test's event loop serves it. Killed at the end if need be.
class Program
{
public:
    explicit Program(
        const QString& program, const QStringList& arguments = {},
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        m_process.setProcessEnvironment(environment);
        m_process.start(program, arguments);
    }

    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The exit code; -1 after a crash, or when it does not end.
    int exitCode()
    {
        const bool ended = waitFor([this] { return m_process.state() == QProcess::NotRunning; });
        return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    [[nodiscard]] QString output()
    {
        m_output += QString::fromUtf8(m_process.readAllStandardOutput());
        return m_output;
    }

    [[nodiscard]] QString errors()
    {
        m_errors += QString::fromUtf8(m_process.readAllStandardError());
        return m_errors;
    }

    void terminate() { m_process.terminate(); }

private:
    QProcess m_process;
    QString m_output;
    QString m_errors;
};

// The simulated phone as a process.
class PhoneProcess : public Program
{
public:
    explicit PhoneProcess(const QStringList& arguments)
        : Program(QStringLiteral(PEVRIX_BIN_DIR "/phonesim"), arguments)
    {}

    // A number of the summary line; -1 when it is not there.
    qint64 summary(const QString& key)
    {
        const QString line = output().section(QStringLiteral("summary "), -1).section(u'\n', 0, 0);
        for (const QString& pair : line.split(u' ')) {
            if (pair.section(u'=', 0, 0) == key) {
                return pair.section(u'=', 1).toLongLong();
            }
        }
        return -1;
    }
};

} // namespace pevrix
