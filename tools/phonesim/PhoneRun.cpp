#include "tools/phonesim/PhoneRun.h"

#include "tools/phonesim/PatternSource.h"
#include "tools/phonesim/Phone.h"

#include <QTcpSocket>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kProgressInterval = 1s;

void printLine(std::FILE* stream, const QString& text)
{
    std::fputs(qPrintable(text + u'\n'), stream);
    std::fflush(stream); // whoever reads a pipe wants every line at once
}

} // namespace

PhoneRun::PhoneRun(Options options, int phones, QObject* parent)
    : QObject(parent)
    , m_options(std::move(options))
    , m_seats(static_cast<std::size_t>(phones))
{
    int number = 0;
    for (Seat& seat : m_seats) {
        seat.identity = m_options.identity;
        if (phones > 1) {
            ++number;
            seat.identity.deviceId += QStringLiteral("-%1").arg(number);
            seat.identity.name += QStringLiteral(" %1").arg(number);
            seat.label = QStringLiteral("phone %1: ").arg(number);
        }
    }
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
    begin();
}

bool PhoneRun::prepareFiles()
{
    if (!m_options.dumpFile.isEmpty()) {
        m_dump.setFileName(m_options.dumpFile);
        if (!m_dump.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            fail(ExitCode::BadUsage, QStringLiteral("cannot write \"%1\"").arg(m_options.dumpFile));
            return false;
        }
    }
    if (!m_options.video.input.isEmpty()) {
        QString error;
        m_clip = loadClip(m_options.video.input, error);
        if (!m_clip) {
            fail(QFile::exists(m_options.video.input) ? ExitCode::VideoTrouble : ExitCode::BadUsage,
                 error);
            return false;
        }
        if (m_clip->reordered) {
            complain(QStringLiteral("note: the file has B-frames, which phones never send"));
        }
    }
    return true;
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

void PhoneRun::connectPhone(Seat& seat, QTcpSocket* socket, const QString& where,
                            const std::optional<QString>& token)
{
    ++seat.stats.connections;
    say(seat.label + QStringLiteral("connected to %1").arg(where));
    if (m_options.duration && !m_duration.isActive()) {
        m_duration.start(*m_options.duration);
    }
    seat.phone = std::make_unique<Phone>(
        Phone::Setup{seat.identity, token, m_options.plan, m_options.video, makeSource()}, socket,
        seat.stats, m_dump.isOpen() ? &m_dump : nullptr);
    connect(seat.phone.get(), &Phone::event, this,
            [this, &seat](const QString& text) { say(seat.label + text); });
    connect(seat.phone.get(), &Phone::accepted, this, [this, &seat] { onAccepted(seat); });
    // Queued, because the phone is freed in response.
    connect(
        seat.phone.get(), &Phone::finished, this,
        [this, &seat](ExitCode code, const QString& reason) {
            onPhoneFinished(seat, code, reason);
        },
        Qt::QueuedConnection);
    seat.phone->start();
}

void PhoneRun::onPhoneFinished(Seat& seat, ExitCode code, const QString& reason)
{
    seat.phone.reset();
    seat.stats.state = PhoneState::Connecting;
    const bool cutOff = std::exchange(seat.cutOff, false) && code == ExitCode::Lost;
    seat.last = cutOff ? ExitCode::Done : code;
    seat.stats.lost += seat.last == ExitCode::Lost ? 1 : 0;
    seat.stats.refused += code == ExitCode::Refused ? 1 : 0;
    if (seat.last != ExitCode::Done) {
        complain(seat.label +
                 (code == ExitCode::Refused ? QStringLiteral("refused: ") + reason : reason));
    }
    const bool mayReturn = seat.last == ExitCode::Done || code == ExitCode::Lost;
    if (m_stopping || !mayReturn || (!cutOff && seat.returns >= m_options.reconnects)) {
        conclude(seat);
    } else if (cutOff) {
        onCutOff(seat);
    } else {
        ++seat.returns;
        comeBack(seat);
    }
}

void PhoneRun::conclude(Seat& seat)
{
    seat.over = true;
    if (std::ranges::all_of(m_seats, &Seat::over)) {
        const auto failed = std::ranges::find_if(
            m_seats, [](const Seat& each) { return each.last != ExitCode::Done; });
        end(failed == m_seats.end() ? ExitCode::Done : failed->last);
    }
}

void PhoneRun::stop()
{
    m_stopping = true;
    for (Seat& seat : m_seats) {
        if (seat.phone) {
            seat.phone->leave();
        } else if (!seat.over) {
            seat.last = ExitCode::Done;
            conclude(seat);
        }
    }
}

void PhoneRun::printProgress()
{
    const double seconds = static_cast<double>(m_sinceLine.restart()) / 1000.0;
    const auto rate = [&](qint64 difference) {
        return static_cast<double>(difference) / seconds;
    };
    for (Seat& seat : m_seats) {
        const RunStats& stats = seat.stats;
        const RunStats& shown = seat.shownStats;
        say(seat.label + QStringLiteral("%1 s %2, %3 frames, %4 fps, %5 kbit/s, %6 keyframes")
                             .arg((m_clock.elapsed() + 500) / 1000, 3)
                             .arg(QString::fromLatin1(describe(stats.state)))
                             .arg(stats.frames)
                             .arg(rate(stats.frames - shown.frames), 0, 'f', 1)
                             .arg(rate((stats.bytes - shown.bytes) * 8 / 1000), 0, 'f', 0)
                             .arg(stats.keyframes));
        seat.shownStats = stats;
    }
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

void PhoneRun::fail(ExitCode code, const QString& reason)
{
    complain(reason);
    end(code);
}

void PhoneRun::end(ExitCode code)
{
    if (std::exchange(m_ended, true)) {
        return;
    }
    halt();
    m_duration.stop();
    m_progress.stop();
    const bool dumped = !m_dump.isOpen() || m_dump.flush();
    if (!dumped || m_dump.error() != QFileDevice::NoError) {
        complain(QStringLiteral("cannot write \"%1\"").arg(m_options.dumpFile));
        code = code == ExitCode::Done ? ExitCode::BadUsage : code;
    }
    m_dump.close();
    RunStats total;
    for (const Seat& seat : m_seats) {
        total += seat.stats;
    }
    printLine(stdout, summary(total, code, m_clock.durationElapsed() / 1ms * 1ms));
    Q_EMIT done(code);
}

} // namespace pevrix
