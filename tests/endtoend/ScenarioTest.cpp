// The whole way of the video in one process with the test's clicks: real phones, controller and
// sink, and a camera library that writes down what it was sent.
#include "controller/Card.h"
#include "tests/endtoend/FilmedPhone.h"
#include "tests/endtoend/Footage.h"
#include "tests/softcam/PipeWireSession.h"
#include "tests/support/TestController.h"
#include "tools/doubles/Program.h"
#include "tools/doubles/Testcam.h"
#include "tools/phonesim/MuxDaemon.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <memory>
#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

constexpr QSize kSmall(160, 120); // rows of whole words, so that an image's rows have no padding
constexpr QSize kLarge(320, 240);

class ScenarioTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_library);
        m_camera =
            reinterpret_cast<TestcamStateFunction>(cameraEntryPoint(m_library, "testcamState"))();
        qputenv(kCameraLogVariable, QFile::encodeName(path("camera.log")));
    }

    void TearDown() override
    {
        m_app.reset();
        qunsetenv(kCameraLogVariable);
        EXPECT_EQ(m_camera->misuses, 0);
        EXPECT_EQ(m_camera->created, m_camera->deleted);
    }

    void startApp(quint16 usbPort = kNobodysPort, const char* cameraLibrary = TESTCAM_NAME)
    {
        m_delivered.clear();
        ControllerOptions options = testOptions(m_folder.path(), usbPort);
        options.cameraLibrary = cameraLibrary;
        m_app = std::make_unique<AppController>(options);
        QObject::connect(m_app.get(), &AppController::frameReady, m_app.get(),
                         [this](const QImage& image) { note(image); });
        m_app->setRecordingFolder(path("recordings"));
        m_app->start();
        ASSERT_TRUE(m_app->cameraReady());
        m_footage.addCard(u"idle"_s, drawIdleCard({1280, 720}, m_app->pairAddress()));
    }

    void note(const QImage& image)
    {
        m_imageSize = image.size();
        m_delivered.push_back(
            pictureHash(image.constBits(), static_cast<std::size_t>(image.sizeInBytes())));
        if (m_direct) {
            EXPECT_EQ(m_app->framesDecoded(), std::ssize(m_delivered));
        }
    }

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString path(const char* name) const { return path(QString::fromLatin1(name)); }

    [[nodiscard]] std::unique_ptr<FilmedPhone> wifiPhone(const QString& name, QSize size = kSmall,
                                                         int fps = 30) const
    {
        auto filmed = std::make_unique<FilmedPhone>(name, size, fps);
        filmed->connectTo(m_app->port(), path("pairing-token.txt"));
        return filmed;
    }

    [[nodiscard]] bool waitForPhones(qsizetype count) const
    {
        return waitUntil([&] { return m_app->phones().size() == count; });
    }

    // Pictures of this size come, from now on.
    [[nodiscard]] bool waitForPictures(QSize size, std::ptrdiff_t count = 12)
    {
        const auto until = std::ssize(m_delivered) + count;
        return waitUntil([&] { return std::ssize(m_delivered) >= until && m_imageSize == size; });
    }

    // The camera is sent what is current now.
    [[nodiscard]] bool waitForCamera() const
    {
        const int sent = m_camera->sent;
        return waitUntil([&] { return m_camera->sent >= sent + 5; });
    }

    // The phone leaves and all that it sent is known.
    void dismiss(FilmedPhone& filmed)
    {
        filmed.phone.leave();
        EXPECT_TRUE(waitUntil([&] { return filmed.phone.state() == Phone::State::Over; }));
        m_footage.addPhone(filmed.name, filmed.video);
    }

    // Ends the program; the story that the camera saw.
    [[nodiscard]] std::string cameraStory()
    {
        m_app.reset();
        const auto log = readCameraLog(path("camera.log"));
        expectNeverStarved(log, m_holdUps);
        return m_footage.story(sentHashes(log), true);
    }

    QTemporaryDir m_folder;
    CameraLibrary m_library = loadCameraLibrary(TESTCAM_NAME); // keeps its state alive
    TestcamState* m_camera = nullptr;
    std::unique_ptr<AppController> m_app;
    Footage m_footage;
    HoldUps m_holdUps;
    std::vector<std::uint64_t> m_delivered; // to the preview, as to the sink and the recorder
    QSize m_imageSize;
    bool m_direct = false; // each picture is to come as soon as it is decoded
};

} // namespace

TEST_F(ScenarioTest, SwitchesBetweenPhonesAndGoesIdleWhenTheLastOneLeaves)
{
    startApp();
    const auto first = wifiPhone(u"first"_s);
    ASSERT_TRUE(waitForPictures(kSmall));
    const auto second = wifiPhone(u"second"_s);
    ASSERT_TRUE(waitForPhones(2));
    const auto third = wifiPhone(u"third"_s, kLarge);
    ASSERT_TRUE(waitForPhones(3));
    m_app->setActive(2);
    ASSERT_TRUE(waitForPictures(kSmall));
    m_app->setActive(1);
    ASSERT_TRUE(waitForPictures(kSmall));
    m_app->setActive(3);
    ASSERT_TRUE(waitForPictures(kLarge));
    dismiss(*third); // the first phone of the list follows
    ASSERT_TRUE(waitForPictures(kSmall));
    dismiss(*first);
    ASSERT_TRUE(waitForPictures(kSmall));
    dismiss(*second);
    ASSERT_TRUE(waitUntil([&] { return !m_app->live(); }));
    m_footage.addCard(u"idle"_s, drawIdleCard(kSmall, m_app->pairAddress()));
    ASSERT_TRUE(waitForCamera());

    const std::string phones = "first second first third first second";
    EXPECT_EQ(m_footage.story(m_delivered, false), phones);
    EXPECT_EQ(cameraStory(), "idle " + phones + " idle");
    EXPECT_EQ(m_camera->created, 4) << "only another size needs another camera";
}

TEST_F(ScenarioTest, RecordsUntilTheSizeChangesAndUntilTheProgramEnds)
{
    startApp();
    const auto filmed = wifiPhone(u"phone"_s);
    ASSERT_TRUE(waitForPictures(kSmall, 10));
    m_app->toggleRecording();
    ASSERT_TRUE(m_app->recording());
    const QString first = m_app->lastRecordingPath();
    ASSERT_TRUE(waitForPictures(kSmall));
    filmed->phone.resize(kLarge);
    ASSERT_TRUE(waitForPictures(kLarge, 5));
    EXPECT_FALSE(m_app->recording());

    m_app->setRecordingFolder(path("more"));
    m_app->toggleRecording();
    m_app->toggleOutput(); // recording goes on
    const qint64 sent = m_app->framesSent();
    ASSERT_TRUE(waitForPictures(kLarge, 20));
    EXPECT_EQ(m_app->framesSent(), sent);
    m_app->toggleOutput();
    const QString second = m_app->lastRecordingPath();
    (void)cameraStory(); // the end, while live
    m_footage.addPhone(u"phone"_s, filmed->video);

    EXPECT_THAT(played(first), testing::MatchesRegex("160,120,[1-9][0-9]*"));
    EXPECT_THAT(played(second), testing::MatchesRegex("320,240,[1-9][0-9]*"));
    EXPECT_EQ(m_footage.story(m_delivered, false), "phone");
    // The queue gives pictures up after a hold-up of several frames, and the camera shows the
    // newest one only; both is rare, unless the machine is very busy.
    EXPECT_GE(m_footage.seen(u"phone"_s) * 2, m_footage.sent(u"phone"_s));
    EXPECT_EQ(m_footage.story(sentHashes(readCameraLog(path("camera.log"))), true), "idle phone");
    EXPECT_GE(m_footage.seen(u"phone"_s) * 4, m_footage.sent(u"phone"_s));
}

TEST_F(ScenarioTest, AReaderGoesOnWhenThePhoneIsTurned)
{
    constexpr QSize kTurned(120, 160);
    constexpr qsizetype kPicture = 160 * 120 * 3 / 2; // NV12
    test::PipeWireSession session;
    session.startDaemon();
    startApp(kNobodysPort, "libsoftcam.so");
    const auto filmed = wifiPhone(u"phone"_s);
    ASSERT_TRUE(waitForPictures(kSmall));
    static_cast<void>(session.waitForCamera(kSmall.width()));
    QFile seen(path("seen"));
    const Program reader(u"gst-launch-1.0"_s,
                         words("-q pipewiresrc target-object=pevrix-camera ! "
                               "video/x-raw,format=NV12,width=160,height=120 ! filesink") +
                             QStringList{u"location="_s + seen.fileName()});
    EXPECT_TRUE(waitUntil([&] { return m_app->appConnected(); }));
    // Of the middle row: it is light at the left, and black there once bars are beside the picture.
    const auto waitForLeftEdge = [&](bool black) {
        const qint64 size = seen.size();
        return waitUntil([&] {
            const qint64 last = seen.size() / kPicture - 1;
            return last > size / kPicture + 20 && seen.seek(last * kPicture + 60 * 160) &&
                   (seen.read(1) == "\x10") == black;
        });
    };
    ASSERT_TRUE(waitUntil([&] { return seen.open(QIODevice::ReadOnly | QIODevice::Unbuffered); }));
    EXPECT_TRUE(waitForLeftEdge(false));
    filmed->phone.resize(kTurned);
    ASSERT_TRUE(waitForPictures(kTurned));
    EXPECT_TRUE(waitForLeftEdge(true));
    EXPECT_TRUE(m_app->appConnected());
    filmed->phone.resize(kSmall);
    EXPECT_TRUE(waitForLeftEdge(false));
}

TEST_F(ScenarioTest, SendsPicturesFromACableAtOnceAndEvensOutTheNetwork)
{
    MuxDaemon daemon;
    ASSERT_TRUE(daemon.appear());
    FilmedPhone cable(u"cable"_s, kSmall);
    QObject::connect(&daemon, &MuxDaemon::tunnelOpened, &cable.phone,
                     [&](int, QTcpSocket* socket) { cable.phone.takeTunnel(socket); });
    daemon.attach(1);
    m_direct = true;
    startApp(daemon.port());
    ASSERT_TRUE(waitForPictures(kSmall));
    // Faster than pictures from the network are shown, and than a rate that is believed.
    const auto wifi = wifiPhone(u"wifi"_s, kSmall, 240);
    ASSERT_TRUE(waitForPhones(2));
    ASSERT_TRUE(waitForPictures(kSmall, 30));
    QObject::connect(m_app.get(), &AppController::changed, m_app.get(),
                     [this] { m_direct = m_direct && m_app->activeId() == 1; });
    dismiss(cable);
    (void)m_footage.story(m_delivered, false);
    EXPECT_EQ(m_footage.seen(u"cable"_s), m_footage.sent(u"cable"_s));

    ASSERT_TRUE(waitForPictures(kSmall, 30));
    dismiss(*wifi);
    ASSERT_TRUE(waitForPhones(0));
    EXPECT_EQ(m_app->framesDecoded(), m_footage.sent(u"cable"_s) + m_footage.sent(u"wifi"_s));
    EXPECT_EQ(m_footage.story(m_delivered, false), "cable wifi");
    EXPECT_LT(m_footage.seen(u"wifi"_s), m_footage.sent(u"wifi"_s))
        << "the oldest pictures are dropped";
    m_footage.addCard(u"idle"_s, drawIdleCard(kSmall, m_app->pairAddress()));
    ASSERT_TRUE(waitForCamera());
    EXPECT_EQ(cameraStory(), "idle cable wifi idle");
}

TEST_F(ScenarioTest, EndsCleanlyAtAnyMoment)
{
    std::mt19937 random(5);
    int recordings = 0;
    for (int round = 0; round < 6; ++round) {
        SCOPED_TRACE(round);
        startApp();
        // A phone that comes again as soon as it has gone.
        std::unique_ptr<FilmedPhone> filmed;
        QTimer again;
        again.callOnTimeout(&again, [&] { filmed = wifiPhone(u"phone"_s); });
        again.start(600ms);
        filmed = wifiPhone(u"phone"_s);
        if (round == 0) { // at least once, however slow the machine
            ASSERT_TRUE(waitForPictures(kSmall));
        } else {
            letEventsRunFor(std::chrono::milliseconds(random() % 1500));
        }
        m_app->toggleRecording();
        const bool recording = m_app->recording();
        const QString file = m_app->lastRecordingPath();
        if (recording) {
            EXPECT_TRUE(waitForPictures(kSmall, 1 + static_cast<int>(random() % 20)));
        }
        again.stop();
        m_app.reset();
        if (recording) {
            ++recordings;
            EXPECT_THAT(played(file), testing::MatchesRegex("160,120,[1-9][0-9]*"));
        }
    }
    EXPECT_GT(recordings, 0);
    expectNeverStarved(readCameraLog(path("camera.log")), m_holdUps);
}

} // namespace pevrix
