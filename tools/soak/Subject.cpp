#include "tools/soak/Subject.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

#include <filesystem>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kStartLimit = 60s; // a sanitized program on a busy machine
constexpr auto kRecordingLimit = 5s;
constexpr auto kQuitLimit = 60s; // the search for leaks is part of it

int entries(const QString& folder)
{
    return static_cast<int>(
        QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

QString outputOf(const QString& program, const QStringList& arguments)
{
    Program run(program, arguments);
    if (run.awaitExit() != 0 || !run.errors().isEmpty()) {
        return {};
    }
    return run.output().trimmed();
}

} // namespace

QString Subject::prepared(const Build& build, const QString& folder)
{
    // The token lies beside the program, and the camera library is looked for there first.
    const std::filesystem::path bin(build.bin.toStdString());
    const std::filesystem::path home(folder.toStdString());
    std::filesystem::create_directories(home / "config");
    for (const char* name : {"pevrix", "libpevrix-ffmpeg.so", "libsoftcam.so"}) {
        std::filesystem::remove(home / name);
        std::filesystem::create_hard_link(bin / name, home / name);
    }
    std::filesystem::remove(home / "pairing-token.txt");
    std::filesystem::create_directories(home / "videos");
    QFile folders(folder + u"/config/user-dirs.dirs"_s);
    if (folders.open(QIODevice::WriteOnly)) {
        folders.write("XDG_VIDEOS_DIR=\"" + QFile::encodeName(folder) + "/videos\"\n");
    }
    return folder + u"/pevrix"_s;
}

QProcessEnvironment Subject::environmentIn(const Build& build, const QString& folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LOCALAPPDATA"_s, folder);
    environment.insert(u"XDG_CONFIG_HOME"_s, folder + u"/config"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    // Freed memory that is kept to catch its late users is bounded, or it would look like a leak.
    environment.insert(u"ASAN_OPTIONS"_s,
                       u"quarantine_size_mb=16:allocator_release_to_os_interval_ms=500"_s);
    // A picture goes back to the system when it is freed. The program itself lets the heap keep such
    // blocks, which saves it work with every picture but hides what a leak adds.
    environment.insert(u"MALLOC_MMAP_THRESHOLD_"_s, u"1048576"_s);
    if (build.sanitized) { // it would report the leaks of the graphics driver
        environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
    }
    environment.insert(u"UBSAN_OPTIONS"_s, u"print_stacktrace=1"_s);
    return environment;
}

QStringList Subject::command(const QString& program, const QString& folder, const Before& before)
{
    const QString shell = before.shell.isEmpty() ? QString() : before.shell + u" && "_s;
    return before.runner + QStringList{u"/bin/sh"_s, u"-c"_s, shell + u"exec \"$0\""_s, program,
                                       folder + u"/videos"_s};
}

Subject::Subject(const Build& build, const QString& folder, const Before& before)
    : m_folder(folder)
    , m_command(command(prepared(build, folder), folder, before))
    , m_program(m_command.constFirst(), m_command.sliced(1), environmentIn(build, folder))
{}

bool Subject::awaitStart()
{
    static const QRegularExpression listening(u"listening on port (\\d+)"_s);
    QRegularExpressionMatch match;
    const bool started = waitUntil(
        [&] {
            match = listening.match(m_program.errors());
            return match.hasMatch() || m_program.state() == QProcess::NotRunning;
        },
        QDeadlineTimer(kStartLimit));
    m_port = match.captured(1).toUShort();
    // It listens a moment before it has made its pairing code.
    return started && m_port != 0 &&
           waitUntil([this] { return !token().isEmpty(); }, QDeadlineTimer(kStartLimit));
}

QString Subject::token() const
{
    QFile file(m_folder + u"/pairing-token.txt"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

Resources Subject::resources() const
{
    const QString process = u"/proc/%1/"_s.arg(processId());
    Resources resources{.descriptors = entries(process + u"fd"_s),
                        .threads = entries(process + u"task"_s)};
    QFile memory(process + u"statm"_s);
    if (memory.open(QIODevice::ReadOnly)) {
        const qint64 pages = memory.readAll().split(' ').value(1).toLongLong();
        resources.megabytes =
            static_cast<double>(pages * ::sysconf(_SC_PAGESIZE)) / (1024.0 * 1024);
    }
    return resources;
}

quint64 Subject::addressSpace() const
{
    QFile memory(u"/proc/%1/statm"_s.arg(processId()));
    return memory.open(QIODevice::ReadOnly) ? memory.readAll().split(' ').value(0).toULongLong() *
                                                  static_cast<quint64>(::sysconf(_SC_PAGESIZE))
                                            : 0;
}

bool Subject::awaitLog(const QString& text, std::chrono::seconds limit)
{
    return waitUntil([&] { return log().contains(text); }, QDeadlineTimer(limit));
}

void Subject::pressRecord()
{
    Program click(u"xdotool"_s, words("mousemove 460 459 click 1"));
    (void)click.awaitExit();
}

QStringList Subject::recordings() const
{
    // Seen as the program sees it, whose folder may be a mount of its own.
    const QString root = isRunning() ? u"/proc/%1/root"_s.arg(processId()) : QString();
    const QDir folder(root + m_folder + u"/videos/Pevrix"_s);
    QStringList files;
    for (const QString& name :
         folder.entryList({u"*.mp4"_s}, QDir::Files, QDir::Time | QDir::Reversed)) {
        files += folder.filePath(name);
    }
    return files;
}

bool Subject::awaitRecording(qsizetype before) const
{
    return waitUntil([&] { return recordings().size() > before; }, QDeadlineTimer(kRecordingLimit));
}

Subject::End Subject::quit()
{
    QElapsedTimer clock;
    clock.start();
    m_program.terminate();
    const bool ended = waitUntil([this] { return m_program.state() == QProcess::NotRunning; },
                                 QDeadlineTimer(kQuitLimit));
    End end{.ms = static_cast<double>(clock.nsecsElapsed()) / 1e6};
    if (ended && m_program.exitStatus() == QProcess::NormalExit) {
        end.code = m_program.exitCode();
    }
    return end;
}

std::optional<Playable> play(const QString& file)
{
    // It is decoded to its end, and any complaint counts.
    const QStringList times =
        outputOf(u"ffprobe"_s, words("-v warning -select_streams v -show_entries frame=pts_time "
                                     "-of csv=p=0") +
                                   QStringList{file})
            .split(u'\n', Qt::SkipEmptyParts);
    if (times.isEmpty()) {
        return {};
    }
    return Playable{.pictures = static_cast<int>(times.size()),
                    .seconds = times.constLast().split(u',').constFirst().toDouble()};
}

} // namespace pevrix
