// The program itself, without a display, with simulated phones and a camera library that writes
// down what it was sent.
#include "controller/Card.h"
#include "controller/LivePipeline.h"
#include "pairing/LanEndpoints.h"
#include "tests/endtoend/FilmedPhone.h"
#include "tests/endtoend/Footage.h"
#include "tools/doubles/Program.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

constexpr int kDone = 0;
constexpr QSize kSize(320, 240);

class ProgramScenarioTest : public testing::Test
{
protected:
    // The program looks for its libraries beside itself, so it gets a folder of its own.
    void SetUp() override
    {
        const std::filesystem::path bin(PEVRIX_BIN_DIR);
        const std::filesystem::path folder(m_folder.path().toStdString());
        for (const char* file : {"pevrix", "libpevrix-ffmpeg.so"}) {
            std::filesystem::create_hard_link(bin / file, folder / file);
        }
        std::filesystem::create_hard_link(bin / TESTCAM_NAME, folder / "libsoftcam.so");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LOCALAPPDATA"_s, m_folder.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, path("config"));
        environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        environment.insert(QString::fromLatin1(kCameraLogVariable), path("camera.log"));
        m_program.emplace(path("pevrix"), QStringList(), environment);
        m_port = waitForLog("listening on port (\\d+)").toUShort();
        ASSERT_GT(m_port, 0);
        const QString address = findLanEndpoints(m_port).value(0);
        m_footage.addCard(u"idle"_s, drawIdleCard({1280, 720}, address));
        m_footage.addCard(u"idle"_s, drawIdleCard(kSize, address));
        m_footage.addCard(u"paused"_s, drawPausedCard(kSize));
    }

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString path(const char* name) const { return path(QString::fromLatin1(name)); }

    // The last capture of the pattern in the log, once it is there.
    QString waitForLog(const char* pattern)
    {
        const QRegularExpression expression(QString::fromLatin1(pattern));
        QRegularExpressionMatch match;
        EXPECT_TRUE(waitUntil([&] {
            match = expression.match(m_program->errors());
            return match.hasMatch();
        })) << pattern
            << qPrintable(m_program->errors());
        return match.captured(match.lastCapturedIndex());
    }

    [[nodiscard]] std::unique_ptr<FilmedPhone> phone(const QString& name) const
    {
        auto filmed = std::make_unique<FilmedPhone>(name, kSize);
        filmed->connectTo(m_port, path("pairing-token.txt"));
        return filmed;
    }

    QTemporaryDir m_folder{QStringLiteral(PEVRIX_BIN_DIR "/endtoend-XXXXXX")};
    std::optional<Program> m_program;
    quint16 m_port = 0;
    Footage m_footage;
    HoldUps m_holdUps;
};

} // namespace

TEST_F(ProgramScenarioTest, ShowsAPhoneThatPausesAndTheNextOneAndEndsWhileItIsLive)
{
    const auto first = phone(u"first"_s);
    waitForLog("first picture of the stream");
    letEventsRunFor(700ms);
    first->phone.setStalled(true);
    waitForLog("paused card");
    letEventsRunFor(300ms);
    first->phone.setStalled(false);
    const auto second = phone(u"second"_s);
    waitForLog("phone 2 connected");
    letEventsRunFor(700ms);
    first->phone.leave();
    waitForLog("disconnected(.|\n)*first picture of the stream");
    letEventsRunFor(500ms);
    m_program->terminate();
    EXPECT_EQ(m_program->awaitExit(), kDone) << qPrintable(m_program->errors());
    waitForLog("stopped after \\d+ access units received");
    const auto log = readCameraLog(path("camera.log"));
    expectNeverStarved(log, m_holdUps);
    // Of the card's and of the phones' size.
    EXPECT_EQ(std::ranges::count(log, CameraEvent::Created, &CameraRecord::event), 2);
    m_footage.addPhone(u"first"_s, first->video);
    m_footage.addPhone(u"second"_s, second->video);
    EXPECT_EQ(m_footage.story(sentHashes(log), true), "idle first paused first second");
    EXPECT_GE(m_footage.seen(u"first"_s) * 3, m_footage.sent(u"first"_s));

    const std::vector<std::uint8_t> card = drawPausedCard(kSize);
    const auto paused =
        std::ranges::find(log, pictureHash(card.data(), card.size()), &CameraRecord::hash);
    ASSERT_TRUE(paused != log.begin() && paused != log.end());
    const auto last = std::ranges::find(log, std::prev(paused)->hash, &CameraRecord::hash);
    const std::chrono::nanoseconds still(paused->time - last->time);
    // The camera takes a picture up to one of its intervals after it was decoded.
    EXPECT_GE(still, StallDetector::kLimit - 40ms);
    EXPECT_LE(still, StallDetector::kLimit + StallDetector::kCheckInterval + 1s);
}

} // namespace pevrix
