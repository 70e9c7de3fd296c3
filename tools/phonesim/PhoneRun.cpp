#include "tools/phonesim/PhoneRun.h"

#include "tools/phonesim/PatternSource.h"
#include "tools/phonesim/Phone.h"

#include <QTcpSocket>

#include <cstdio>
#include <utility>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kTokenFileLook = 50ms;
constexpr auto kProgressInterval = 1s;
constexpr qint64 kMaxTokenBytes = 4096; // a token is some dozen characters

void printLine(std::FILE* stream, const QString& text)
{
    std::fputs(qPrintable(text + u'\n'), stream);
    std::fflush(stream); // whoever reads a pipe wants every line at once
}

} // namespace

PhoneRun::PhoneRun(Options options, QObject* parent)
    : QObject(parent)
    , m_options(std::move(options))
    , m_connector(m_options.endpoints)
{
    connect(&m_connector, &Connector::connected, this, &PhoneRun::onConnected);
    connect(&m_connector, &Connector::failed, this, [this](const QString& reason) {
        complain(reason);
        end(ExitCode::CannotConnect);
    });
    m_pause.setSingleShot(true);
    m_duration.setSingleShot(true);
    m_duration.setTimerType(Qt::PreciseTimer);
    m_progress.setTimerType(Qt::PreciseTimer);
    connect(&m_duration, &QTimer::timeout, this, &PhoneRun::stop);
    connect(&m_progress, &QTimer::timeout, this, &PhoneRun::printProgress);
}

PhoneRun::~PhoneRun() = default;

void PhoneRun::start()
{
    m_clock.start();
    m_sinceLine.start();
    if (!prepareFiles()) {
        return;
    }
    if (!m_options.quiet) {
        m_progress.start(kProgressInterval);
    }
    readToken();
}

bool PhoneRun::prepareFiles()
{
    if (!m_options.dumpFile.isEmpty()) {
        m_dump.setFileName(m_options.dumpFile);
        if (!m_dump.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            complain(QStringLiteral("cannot write \"%1\"").arg(m_options.dumpFile));
            end(ExitCode::BadUsage);
            return false;
        }
    }
    if (!m_options.video.input.isEmpty()) {
        QString error;
        m_clip = loadClip(m_options.video.input, error);
        if (!m_clip) {
            complain(error);
            end(QFile::exists(m_options.video.input) ? ExitCode::VideoTrouble : ExitCode::BadUsage);
            return false;
        }
        if (m_clip->reordered) {
            complain(QStringLiteral("note: the file has B-frames, which phones never send"));
        }
    }
    return true;
}

// The program writes its token file some time after it was started, so the file may be missing or
// still empty at the first look.
void PhoneRun::readToken()
{
    if (m_options.tokenFile.isEmpty()) {
        connectToPc();
        return;
    }
    QFile file(m_options.tokenFile);
    if (file.open(QIODevice::ReadOnly)) {
        m_options.token = QString::fromUtf8(file.read(kMaxTokenBytes)).trimmed();
    }
    if (!m_options.token.isEmpty()) {
        connectToPc();
    } else if (m_clock.durationElapsed() >= m_options.wait) {
        complain(QStringLiteral("no token in \"%1\"").arg(m_options.tokenFile));
        end(ExitCode::BadUsage);
    } else {
        m_pause.disconnect(this);
        connect(&m_pause, &QTimer::timeout, this, &PhoneRun::readToken);
        m_pause.start(kTokenFileLook);
    }
}

void PhoneRun::connectToPc()
{
    m_stats.state = PhoneState::Connecting;
    m_connector.start(m_options.wait);
}

std::unique_ptr<VideoSource> PhoneRun::makeSource() const
{
    const VideoOptions& video = m_options.video;
    if (m_clip) {
        return std::make_unique<FileSource>(m_clip, video.fps);
    }
    return std::make_unique<PatternSource>(
        H264Encoder::Settings{video.size.width(), video.size.height(), video.fps, video.bitrateKbps,
                              video.keyframeInterval},
        video.noise);
}

void PhoneRun::onConnected(QTcpSocket* socket, const QString& where)
{
    ++m_stats.connections;
    say(QStringLiteral("connected to %1").arg(where));
    if (m_options.duration && !m_duration.isActive()) {
        m_duration.start(*m_options.duration);
    }
    m_phone = std::make_unique<Phone>(Phone::Setup{m_options.identity, m_options.token,
                                                   m_options.plan, m_options.video, makeSource()},
                                      socket, m_stats, m_dump.isOpen() ? &m_dump : nullptr);
    connect(m_phone.get(), &Phone::event, this, &PhoneRun::say);
    // Queued, because the phone is freed in response.
    connect(m_phone.get(), &Phone::finished, this, &PhoneRun::onPhoneFinished,
            Qt::QueuedConnection);
    m_phone->start();
}

void PhoneRun::onPhoneFinished(ExitCode code, const QString& reason)
{
    m_phone.reset();
    m_stats.lost += code == ExitCode::Lost ? 1 : 0;
    m_stats.refused += code == ExitCode::Refused ? 1 : 0;
    if (code != ExitCode::Done) {
        complain(code == ExitCode::Refused ? QStringLiteral("refused: ") + reason : reason);
    }
    const bool mayReturn = code == ExitCode::Done || code == ExitCode::Lost;
    if (m_stopping || !mayReturn || m_returns >= m_options.reconnects) {
        end(code);
        return;
    }
    ++m_returns;
    m_stats.state = PhoneState::Connecting;
    m_pause.disconnect(this);
    connect(&m_pause, &QTimer::timeout, this, &PhoneRun::connectToPc);
    m_pause.start(m_options.reconnectDelay);
}

void PhoneRun::stop()
{
    m_stopping = true;
    if (m_phone) {
        m_phone->leave();
    } else {
        end(ExitCode::Done);
    }
}

void PhoneRun::printProgress()
{
    const double seconds = static_cast<double>(m_sinceLine.restart()) / 1000.0;
    const auto rate = [&](qint64 difference) {
        return static_cast<double>(difference) / seconds;
    };
    say(QStringLiteral("%1 s %2, %3 frames, %4 fps, %5 kbit/s, %6 keyframes")
            .arg((m_clock.elapsed() + 500) / 1000, 3)
            .arg(QString::fromLatin1(describe(m_stats.state)))
            .arg(m_stats.frames)
            .arg(rate(m_stats.frames - m_lineStats.frames), 0, 'f', 1)
            .arg(rate((m_stats.bytes - m_lineStats.bytes) * 8 / 1000), 0, 'f', 0)
            .arg(m_stats.keyframes));
    m_lineStats = m_stats;
}

void PhoneRun::say(const QString& text) const
{
    if (!m_options.quiet) {
        printLine(stdout, text);
    }
}

void PhoneRun::complain(const QString& text) const
{
    printLine(stderr, QStringLiteral("phonesim: ") + text);
}

void PhoneRun::end(ExitCode code)
{
    if (std::exchange(m_ended, true)) {
        return;
    }
    m_connector.cancel();
    m_pause.stop();
    m_duration.stop();
    m_progress.stop();
    const bool dumped = !m_dump.isOpen() || m_dump.flush();
    if (!dumped || m_dump.error() != QFileDevice::NoError) {
        complain(QStringLiteral("cannot write \"%1\"").arg(m_options.dumpFile));
        code = code == ExitCode::Done ? ExitCode::BadUsage : code;
    }
    m_dump.close();
    printLine(stdout, summary(m_stats, code, m_clock.durationElapsed() / 1ms * 1ms));
    Q_EMIT done(code);
}

} // namespace pevrix
