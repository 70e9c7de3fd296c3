#include "phone/MessageSplitter.h"
#include "tests/phonesim/RecordingPc.h"
#include "tests/support/PhoneProcess.h"
#include "tools/phonesim/Malformed.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QImage>
#include <QTcpServer>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

namespace pevrix {

namespace {

using namespace Qt::StringLiterals;

constexpr int kDone = 0;
constexpr int kBadUsage = 2;
constexpr int kCannotConnect = 3;
constexpr int kRefused = 4;
constexpr int kLost = 5;
constexpr int kVideoTrouble = 6;

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

class PhoneSim : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_pc.listening && m_folder.isValid()); }

    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    std::unique_ptr<PhoneProcess> startPhone(const char* arguments, const QStringList& more = {})
    {
        return std::make_unique<PhoneProcess>(m_pc.arguments(words(arguments) + more));
    }

    int runPhone(const char* arguments, const QStringList& more = {})
    {
        return startPhone(arguments, more)->exitCode();
    }

    // What an independent decoder finds in H.264 bytes: "WIDTH,HEIGHT,PICTURES", and its
    // complaints.
    QString decoded(const QByteArray& annexB)
    {
        writeFile(path("decode.h264"), annexB);
        Program probe(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-count_frames"_s, u"-show_entries"_s,
                                     u"stream=width,height,nb_read_frames"_s, u"-of"_s,
                                     u"csv=p=0"_s, path("decode.h264")});
        EXPECT_EQ(probe.exitCode(), 0);
        return probe.output().trimmed() + probe.errors();
    }

    void makeClip(const QString& file)
    {
        Program encoder(u"ffmpeg"_s,
                        words("-v error -f lavfi -i testsrc=size=160x120:rate=25 -frames:v 10 "
                              "-c:v libx264 -profile:v baseline -pix_fmt yuv420p -g 5") +
                            QStringList{file});
        ASSERT_EQ(encoder.exitCode(), 0) << qPrintable(encoder.errors());
    }

    QTemporaryDir m_folder;
    RecordingPc m_pc;
};

TEST_F(PhoneSim, PairsThroughTheTokenFileAndStreamsRealVideo)
{
    auto phone = std::make_unique<PhoneProcess>(
        QStringList{u"--port"_s, QString::number(m_pc.server.port()), u"--token-file"_s,
                    path("token"), u"--dump"_s, path("sent.h264"), u"--name"_s, u"Zoë’s phone"_s} +
        words("--wait 60 --device-id d1 --model M1 --os 7.5 --size 320x240 --fps 25 --frames 60 "
              "--unpaced --keyframe-interval 20"));
    waitFor([&] { return !phone->output().isEmpty() || !phone->errors().isEmpty(); });
    writeFile(path("token"), RecordingPc::kToken.toUtf8());

    EXPECT_EQ(phone->exitCode(), kDone) << qPrintable(phone->errors());
    ASSERT_TRUE(waitFor([&] { return m_pc.disconnects == 1; }));
    EXPECT_EQ(m_pc.phones, (QList<QStringList>{{u"d1"_s, u"Zoë’s phone"_s, u"M1"_s, u"7.5"_s}}));
    EXPECT_EQ(m_pc.pairings, 1);
    EXPECT_EQ(m_pc.infos, (QList<StreamDescription>{{320, 240, 25}}));
    const QString rest(19, u'f');
    EXPECT_EQ(m_pc.order, u"icK"_s + rest + u"K"_s + rest + u"K"_s + rest);
    for (qsizetype i = 0; i < m_pc.frames.size(); ++i) {
        EXPECT_EQ(m_pc.frames[i].ptsUsec, i * 40'000);
    }
    EXPECT_TRUE(m_pc.frames.constFirst().bytes.contains(m_pc.configs.constFirst()))
        << "keyframes carry the parameter sets too";
    EXPECT_EQ(m_pc.annexB, readFile(path("sent.h264")));
    EXPECT_EQ(decoded(m_pc.annexB), u"320,240,60"_s);
    EXPECT_EQ(phone->summary(u"frames"_s), 60);
    EXPECT_EQ(phone->summary(u"keyframes"_s), 3);
    EXPECT_EQ(phone->summary(u"dropped"_s), 0);
    ASSERT_FALSE(m_pc.thumbnails.isEmpty());
    EXPECT_EQ(QImage::fromData(m_pc.thumbnails.constFirst(), "JPEG").size(), QSize(320, 240));
}

TEST_F(PhoneSim, SendsTheSameBytesInEveryRun)
{
    const char* arguments = "--size 640x360 --frames 30 --unpaced --noise 4";
    ASSERT_EQ(runPhone(arguments), kDone);
    const QByteArray first = std::exchange(m_pc.annexB, {});
    ASSERT_EQ(runPhone(arguments), kDone);
    EXPECT_EQ(m_pc.annexB, first);
}

TEST_F(PhoneSim, SendsUnaskedVideoOnlyWhenToldTo)
{
    m_pc.wantsVideo = false;
    const auto phone = startPhone("--size 64x64 --thumbnail-interval 0.05");
    ASSERT_TRUE(waitFor([&] { return m_pc.thumbnails.size() >= 5; }));
    EXPECT_EQ(m_pc.order, QString());

    EXPECT_EQ(runPhone("--size 64x64 --ignore-active --frames 5"), kDone);
    EXPECT_EQ(m_pc.order, u"icKffff"_s);
}

TEST_F(PhoneSim, HoldsWhenThePcWantsNoVideoAndResumesWithAKeyframe)
{
    const auto phone = startPhone("--size 64x64 --fps 100 --thumbnail-interval 0.05");
    ASSERT_TRUE(waitFor([&] { return m_pc.frames.size() >= 10; }));
    m_pc.server.setActive(m_pc.lastId, false);
    ASSERT_TRUE(waitFor([&] { return phone->output().contains(u"wants no video"); }));

    // Messages keep their order, so the next thumbnail but one comes after the last frame.
    const auto awaitThumbnails = [&](qsizetype more) {
        const qsizetype target = m_pc.thumbnails.size() + more;
        ASSERT_TRUE(waitFor([&] { return m_pc.thumbnails.size() >= target; }));
    };
    awaitThumbnails(2);
    const qsizetype held = m_pc.frames.size();
    const qsizetype orderLength = m_pc.order.size();
    awaitThumbnails(4);
    ASSERT_EQ(m_pc.frames.size(), held);

    m_pc.server.setActive(m_pc.lastId, true);
    ASSERT_TRUE(waitFor([&] { return m_pc.frames.size() >= held + 3; }));
    EXPECT_EQ(m_pc.order.mid(orderLength, 5), u"icKff"_s);
    EXPECT_GT(m_pc.frames[held].ptsUsec - m_pc.frames[held - 1].ptsUsec, 100'000)
        << "the stream's clock goes on while it is held";
}

TEST_F(PhoneSim, ResumesByItselfAfterAStall)
{
    EXPECT_EQ(runPhone("--size 64x64 --frames 30 --stall-after 0.3 --stall-for 0.5"), kDone);
    ASSERT_EQ(m_pc.order.count(u"icK"), 2) << qPrintable(m_pc.order);
    const qsizetype resumed = m_pc.order.lastIndexOf(u"icK") - 2; // the frames before it
    EXPECT_GE(m_pc.frames[resumed].ptsUsec - m_pc.frames[resumed - 1].ptsUsec, 450'000);
}

TEST_F(PhoneSim, ChangesTheSizeInMidStream)
{
    EXPECT_EQ(runPhone("--size 320x240 --frames 40 --resize-after 0.5 --resize-to 240x320"), kDone);
    EXPECT_EQ(m_pc.infos, (QList<StreamDescription>{{320, 240, 30}, {240, 320, 30}}));
    ASSERT_EQ(m_pc.configs.size(), 2);
    EXPECT_NE(m_pc.configs[0], m_pc.configs[1]);
    const qsizetype change = m_pc.order.lastIndexOf(u"icK");
    ASSERT_GT(change, 0) << qPrintable(m_pc.order);

    QByteArray after = m_pc.configs[1];
    for (const auto& frame : m_pc.frames.sliced(change - 2)) {
        after += frame.bytes;
    }
    EXPECT_EQ(decoded(after), u"240,320,%1"_s.arg(m_pc.frames.size() - (change - 2)));
}

TEST_F(PhoneSim, LoopsAFileWithTimestampsThatGoOn)
{
    for (const char* name : {"clip.mp4", "clip.h264"}) {
        SCOPED_TRACE(name);
        makeClip(path(name));
        m_pc.annexB.clear();
        m_pc.order.clear();
        m_pc.frames.clear();
        ASSERT_EQ(runPhone("--frames 25 --unpaced --input", {path(name)}), kDone);
        EXPECT_EQ(m_pc.infos.constLast(), (StreamDescription{160, 120, 25}));
        EXPECT_EQ(m_pc.order, u"icKffffKffffKffffKffffKffff"_s);
        EXPECT_EQ(decoded(m_pc.annexB), u"160,120,25"_s);
        ASSERT_EQ(m_pc.frames.size(), 25);
        EXPECT_EQ(m_pc.frames[13].bytes, m_pc.frames[3].bytes);
        EXPECT_EQ(m_pc.frames[24].ptsUsec, 24 * 40'000);
    }
}

TEST_F(PhoneSim, ASlowPcHoldsUnpacedVideoUpAndLosesNothing)
{
    constexpr int kFrames = 10'000; // far more bytes than the buffers between the two hold
    makeClip(path("clip.mp4"));
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    PhoneProcess phone(
        words("--unpaced --ignore-active --thumbnail-interval 0 --frames 10000 --port") +
        QStringList{QString::number(server.serverPort()), u"--input"_s, path("clip.mp4")});
    ASSERT_TRUE(waitFor([&] { return server.hasPendingConnections(); }));
    QTcpSocket* socket = server.nextPendingConnection();
    socket->setReadBufferSize(65'536);
    socket->write(buildMessage(MessageType::HelloReply, helloReplyPayload()));
    // One progress line without a new frame: everything is full.
    ASSERT_TRUE(waitFor([&] { return phone.output().contains(u" 0.0 fps"); }));

    MessageSplitter splitter;
    int frames = 0;
    ASSERT_TRUE(waitFor([&] {
        splitter.feed(socket->readAll(), [&](const Message& message) {
            frames += message.timestampUsec == frames * 40'000 ? 1 : 0;
        });
        return socket->state() != QAbstractSocket::ConnectedState;
    }));
    EXPECT_EQ(frames, kFrames);
    EXPECT_EQ(phone.exitCode(), kDone) << qPrintable(phone.errors());
}

TEST_F(PhoneSim, LeavesInEveryWayAndComesBack)
{
    for (const char* how : {"close", "bye", "reset"}) {
        SCOPED_TRACE(how);
        m_pc.phones.clear();
        m_pc.frames.clear();
        m_pc.disconnects = 0;
        const auto phone = startPhone(
            "--size 64x64 --frames 5 --unpaced --reconnect 3 --reconnect-delay 0 --leave",
            {QString::fromLatin1(how)});
        EXPECT_EQ(phone->exitCode(), kDone) << qPrintable(phone->errors());
        ASSERT_TRUE(waitFor([&] { return m_pc.disconnects == 4; }));
        EXPECT_EQ(m_pc.phones.size(), 4);
        EXPECT_EQ(phone->summary(u"connections"_s), 4);
        EXPECT_EQ(phone->summary(u"lost"_s), 0);
        if (how != QByteArrayView("reset")) { // which may take frames with it
            EXPECT_EQ(m_pc.frames.size(), 20);
        }
    }
}

TEST_F(PhoneSim, VanishesUntilThePcDropsIt)
{
    using namespace std::chrono_literals;
    RecordingPc impatient({.pingInterval = 50ms, .silenceLimit = 1s});
    PhoneProcess phone(impatient.arguments(words("--size 64x64 --leave vanish --frames 3")));
    EXPECT_EQ(phone.exitCode(), kDone) << qPrintable(phone.errors());
    EXPECT_EQ(impatient.disconnects, 1);
    EXPECT_EQ(impatient.frames.size(), 3);
}

TEST_F(PhoneSim, AnswersPingsWhileItHolds)
{
    using namespace std::chrono_literals;
    RecordingPc impatient({.pingInterval = 50ms, .silenceLimit = 2s});
    impatient.wantsVideo = false;
    PhoneProcess phone(impatient.arguments(words("--thumbnail-interval 0 --duration 4")));
    EXPECT_EQ(phone.exitCode(), kDone) << qPrintable(phone.errors());
    EXPECT_GT(phone.summary(u"pings"_s), 5);
}

TEST_F(PhoneSim, TriesTheEndpointsOfAPairingUriInOrder)
{
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const quint16 deadPort = closed.serverPort();
    closed.close();
    const QString uri =
        u"pevrix://pair?v=1&pc=PC&t=%1&h=127.0.0.1:%2,127.0.0.1:%3"_s.arg(RecordingPc::kToken)
            .arg(deadPort)
            .arg(m_pc.server.port());
    PhoneProcess phone(words("--size 64x64 --frames 2 --wait 0 --uri") + QStringList{uri});
    EXPECT_EQ(phone.exitCode(), kDone) << qPrintable(phone.errors());
    EXPECT_EQ(m_pc.frames.size(), 2);

    PhoneProcess lonely({u"--wait"_s, u"0.2"_s, u"--port"_s, QString::number(deadPort)});
    EXPECT_EQ(lonely.exitCode(), kCannotConnect);
}

TEST_F(PhoneSim, SaysByItsExitCodeWhatWentWrong)
{
    writeFile(path("text.mp4"), "no video at all");
    EXPECT_EQ(runPhone("--fps zero"), kBadUsage);
    EXPECT_EQ(runPhone("--input", {path("missing.mp4")}), kBadUsage);
    EXPECT_EQ(runPhone("--input", {path("text.mp4")}), kVideoTrouble);
    EXPECT_EQ(runPhone("--dump /nonexistent/file"), kBadUsage);
    EXPECT_EQ(runPhone("--help"), kDone);
    EXPECT_EQ(PhoneProcess({u"--wait"_s, u"0"_s, u"--token-file"_s, path("missing")}).exitCode(),
              kBadUsage);
    const QString taken = QString::number(m_pc.server.port());
    EXPECT_EQ(PhoneProcess({u"--usbmux"_s, u"--usbmux-port"_s, taken}).exitCode(), kCannotConnect);
    EXPECT_TRUE(m_pc.phones.isEmpty());

    PhoneProcess stranger({u"--port"_s, QString::number(m_pc.server.port()), u"--token"_s, u"x"_s,
                           u"--reconnect"_s, u"5"_s});
    EXPECT_EQ(stranger.exitCode(), kRefused);
    EXPECT_TRUE(stranger.errors().contains(u"refused: NEEDS_PAIR: Scan the QR to pair"))
        << qPrintable(stranger.errors());
    EXPECT_EQ(stranger.summary(u"connections"_s), 1) << "a refused phone does not try again";
}

TEST_F(PhoneSim, TellsALostConnectionFromAWantedEnd)
{
    const auto replaced = startPhone("--size 64x64");
    ASSERT_TRUE(waitFor([&] { return m_pc.frames.size() >= 3; }));
    const auto successor = startPhone("--size 64x64"); // the same phone again: the first must go
    EXPECT_EQ(replaced->exitCode(), kLost);
    EXPECT_EQ(replaced->summary(u"lost"_s), 1);

    ASSERT_TRUE(waitFor([&] { return successor->output().contains(u"wants video"); }));
    successor->terminate();
    EXPECT_EQ(successor->exitCode(), kDone) << qPrintable(successor->errors());
    EXPECT_GT(successor->summary(u"seconds"_s), -1) << "SIGTERM ends with a summary";
}

struct Expectation
{
    const char* kind;
    int exitCode; // what the PC makes the phone's run end with
    const char* more = "";
};

constexpr Expectation kExpectations[] = {
    {"hello-not-json", kRefused},
    {"hello-not-object", kRefused},
    {"hello-empty", kRefused},
    {"hello-version", kRefused},
    {"hello-text-version", kRefused},
    {"hello-partial-header", kDone, "--duration 0.5"}, // the PC waits without end
    {"hello-header-only", kDone, "--duration 0.5"},
    {"hello-random", kLost},
    {"oversized-header", kLost},
    {"short-frame", kDone},
    {"empty-frame", kDone},
    {"garbage-frame", kDone},
    {"truncated-frame", kDone},
    {"garbage-config", kDone},
    {"empty-config", kDone},
    {"bad-stream-info", kDone},
    {"absurd-stream-info", kDone},
    {"garbage-thumbnail", kDone},
    {"unknown-type", kDone},
    {"second-hello", kDone},
    {"big-ping", kDone},
    {"cut-message", kLost},
    {"random-bytes", kLost},
};

TEST_F(PhoneSim, EveryMalformedPhoneLeavesTheServerServingAGoodOne)
{
    using namespace std::chrono_literals;
    RecordingPc pc({.pingInterval = 100ms, .silenceLimit = 3s});
    PhoneProcess good(pc.arguments(words("--size 64x64 --fps 60 --device-id good")));
    ASSERT_TRUE(waitFor([&] { return !pc.frames.isEmpty(); }));
    const int goodId = pc.frames.constFirst().id;
    for (const Expectation& expectation : kExpectations) {
        SCOPED_TRACE(expectation.kind);
        PhoneProcess bad(pc.arguments(
            words("--size 64x64 --frames 25 --unpaced --device-id bad") + words(expectation.more) +
            QStringList{u"--malformed"_s, QString::fromLatin1(expectation.kind)}));
        EXPECT_EQ(bad.exitCode(), expectation.exitCode) << qPrintable(bad.errors());
        EXPECT_GE(bad.summary(u"malformed"_s), 1);
        pc.frames.clear();
        EXPECT_TRUE(waitFor(
            [&] { return std::ranges::count(pc.frames, goodId, &RecordingPc::Frame::id) >= 3; }));
    }
    good.terminate();
    EXPECT_EQ(good.exitCode(), kDone) << qPrintable(good.errors());
    EXPECT_EQ(good.summary(u"connections"_s), 1);
}

TEST(MalformedKinds, AreAllTried)
{
    std::vector<std::string> known;
    std::vector<std::string> tried;
    for (const MalformedKind& kind : malformedKinds()) {
        known.emplace_back(kind.name);
    }
    for (const Expectation& expectation : kExpectations) {
        tried.emplace_back(expectation.kind);
    }
    EXPECT_EQ(tried, known);
}

} // namespace

} // namespace pevrix
