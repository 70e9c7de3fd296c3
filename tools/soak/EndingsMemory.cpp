// The endings where memory runs out.
#include "tools/phonesim/Phone.h"
#include "tools/soak/CameraReader.h"
#include "tools/soak/Crowd.h"
#include "tools/soak/Endings.h"
#include "tools/soak/Shortage.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <numeric>
#include <sys/resource.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace pevrix {

// The file that the program maps, too.
class SharedShortage
{
public:
    explicit SharedShortage(const QString& path)
        : m_file(path)
    {
        if (m_file.open(QIODevice::ReadWrite | QIODevice::Truncate) &&
            m_file.resize(sizeof(Shortage))) {
            m_shortage = reinterpret_cast<Shortage*>(m_file.map(0, sizeof(Shortage)));
        }
    }
    Shortage* operator->() const { return m_shortage; }
    explicit operator bool() const { return m_shortage != nullptr; }

    [[nodiscard]] int failed() const
    {
        return std::accumulate(m_shortage->failed.begin(), m_shortage->failed.end(), 0);
    }
    [[nodiscard]] QString text() const
    {
        const auto places =
            std::ranges::count_if(m_shortage->places, [](const auto& place) { return place != 0; });
        return u"%1 in the program, %2 in FFmpeg, %3 in the camera, at %4 places"_s
            .arg(m_shortage->failed[Shortage::kProgram])
            .arg(m_shortage->failed[Shortage::kVideo])
            .arg(m_shortage->failed[Shortage::kCamera])
            .arg(places);
    }

private:
    QFile m_file;
    Shortage* m_shortage = nullptr;
};

namespace {

using namespace std::chrono_literals;

constexpr rlim_t kLittleMemory = rlim_t{10} * 1024 * 1024;
constexpr int kLargePhones = 4;

// Between one thing that takes memory and the next, between a stranger's messages, and for all of
// it.
constexpr auto kStep = 50ms;
constexpr auto kBetweenMessages = 1s;
constexpr auto kShortageLimit = 5min;
// One of so many allocations fails, or of fewer: each of those that a stream or a recording begins
// with has its turn.
constexpr int kRarest = 25;
constexpr auto kRecovery = 5s;
constexpr int kPicturesAgain = 30;

// Whether a recording begins, and then ends.
bool recordAgain(Subject& subject)
{
    const qsizetype before = subject.recordings().size();
    subject.pressRecord();
    if (!subject.awaitRecording(before)) { // one was running
        subject.pressRecord();
        if (!subject.awaitRecording(before)) {
            return false;
        }
    }
    letEventsRunFor(2s);
    subject.pressRecord();
    const QString file = subject.recordings().value(before);
    std::optional<Playable> playable;
    return waitUntil(
        [&] {
            playable = play(file);
            return playable && playable->pictures > kPicturesAgain;
        },
        QDeadlineTimer(10s));
}

} // namespace

// While it records, it gets no more memory than it has, and a little; then phones send messages
// that do not fit.
void Endings::runOutOfMemory(const Build& build)
{
    Subject subject(build, folderOf("memory"));
    const bool started = subject.awaitStart();
    const auto phone = started ? phoneFor(subject) : nullptr;
    if (!started || !subject.awaitLog(u"first picture"_s, 10s)) {
        m_verdicts.add(27, u"little memory"_s, u"video flows"_s, u"it does not"_s, false);
        return;
    }
    subject.pressRecord();
    (void)subject.awaitRecording();
    letEventsRunFor(1s);
    const rlim_t limit = subject.addressSpace() + kLittleMemory;
    const rlimit tight{.rlim_cur = limit, .rlim_max = limit};
    ::prlimit(static_cast<pid_t>(subject.processId()), RLIMIT_AS, &tight, nullptr);
    const Address address{.port = subject.port(), .token = subject.token()};
    const int turnedAway = inBackground([&] { return sendLargest(address, kLargePhones); });
    const qint64 before = phone->framesSent();
    letEventsRunFor(1s);
    const bool streams = subject.isRunning() && phone->framesSent() > before + 15;
    const auto end = subject.quit();
    const auto playable = play(subject.recordings().value(0));
    m_verdicts.add(27, u"10 MB and %1 messages of 16"_s.arg(kLargePhones),
                   u"those end that do not fit; the phone streams on; quits; the file plays"_s,
                   u"%1 ended; %2; code %3; %4"_s.arg(turnedAway)
                       .arg(streams ? u"streams"_s : u"broken"_s)
                       .arg(end.code)
                       .arg(playable ? u"plays"_s : u"does not play"_s),
                   turnedAway > 0 && streams && end.code == 0 && playable);
}

// Streams in changing sizes, records, and takes messages of strangers, until so many have failed.
std::unique_ptr<Phone> Endings::takeMemory(Subject& subject, const SharedShortage& shortage,
                                           int count)
{
    const Address address{.port = subject.port(), .token = subject.token()};
    const std::jthread strangers([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            (void)sendLargest(address, 1);
            std::this_thread::sleep_for(kBetweenMessages);
        }
    });
    std::unique_ptr<Phone> phone;
    const QDeadlineTimer end(kShortageLimit);
    for (std::size_t step = 0;
         shortage.failed() < count && subject.isRunning() && !end.hasExpired(); ++step) {
        shortage->every = between(1, kRarest);
        if (!phone || phone->state() == Phone::State::Over) { // its own message did not fit
            phone = phoneFor(subject);
        } else if (step % 4 == 0) {
            subject.pressRecord();
        } else if (step % 4 == 2) {
            phone->resize(Clips::kSizes[step / 4 % Clips::kSizes.size()]);
        }
        letEventsRunFor(kStep);
    }
    shortage->every = 0;
    return phone;
}

void Endings::failAllocations(const Build& build, int count)
{
    const QString file = m_folder + u"/shortage"_s;
    const SharedShortage shortage(file);
    const QString preload =
        u"export QT_QUICK_BACKEND=software %1='%2' LD_PRELOAD='%3/libpevrix-shortage.so'"_s.arg(
            QLatin1StringView(Shortage::kFileVariable), file, build.bin);
    Subject subject(build, folderOf("shortages"), {preload, {}});
    if (!shortage || !subject.awaitStart()) {
        m_verdicts.add(27, u"allocations that fail"_s, u"the program starts"_s, u"it does not"_s,
                       false);
        return;
    }
    const CameraReader reader;
    auto phone = takeMemory(subject, shortage, count);
    // The stream that is there has to come back by itself.
    phone = phone && phone->state() != Phone::State::Over ? std::move(phone) : phoneFor(subject);
    const qint64 before = reader.seen().changes;
    const bool streams = waitUntil([&] { return reader.seen().changes > before + kPicturesAgain; },
                                   QDeadlineTimer(kRecovery));
    const bool records = subject.isRunning() && recordAgain(subject);
    const auto end = subject.quit();
    const QStringList recordings = subject.recordings();
    const auto playing = std::ranges::count_if(
        recordings, [](const QString& recording) { return play(recording).has_value(); });
    m_verdicts.add(27, u"%1 large allocations that fail"_s.arg(count),
                   u"the video goes on within 5 s; it records; quits; all recordings play"_s,
                   u"%1; %2; %3; code %4; %5 of %6"_s
                       .arg(shortage.text(), streams ? u"goes on"_s : u"does not go on"_s,
                            records ? u"records"_s : u"does not record"_s)
                       .arg(end.code)
                       .arg(playing)
                       .arg(recordings.size()),
                   shortage.failed() >= count && streams && records && end.code == 0 &&
                       playing == recordings.size());
    if (end.code != 0) {
        std::printf("%s\n", qPrintable(subject.log().right(20'000)));
    }
}

} // namespace pevrix
