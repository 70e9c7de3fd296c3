#include "tests/endtoend/Footage.h"

#include "picture/PictureSize.h"
#include "tools/doubles/AnnexB.h"
#include "tools/doubles/Program.h"
#include "video/H264Decoder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::nanoseconds kLongestGap = 100ms;

} // namespace

void Footage::addPhone(const QString& name, const QByteArray& video)
{
    const std::vector<std::uint8_t> bytes(video.begin(), video.end());
    int& number = m_sent[name];
    H264Decoder decoder([&](const std::uint8_t* bgr, int width, int height, std::int64_t) {
        const std::uint64_t hash = pictureHash(bgr, pictureBytes(width, height));
        EXPECT_TRUE(m_origins.insert({hash, {name, ++number}}).second) << "pictures are alike";
    });
    ASSERT_TRUE(decoder.initialize(160, 120));
    const auto units = splitAccessUnits(bytes);
    for (const AccessUnit& unit : units) {
        decoder.feed(unit.bytes, 0);
    }
    EXPECT_EQ(number, std::ssize(units));
}

void Footage::addCard(const QString& name, const std::vector<std::uint8_t>& pixels)
{
    m_origins[pictureHash(pixels.data(), pixels.size())] = {name, 0};
}

std::string Footage::story(std::span<const std::uint64_t> hashes, bool repeats)
{
    QStringList story;
    QHash<QString, int> latest;
    m_seen.clear();
    std::uint64_t previous = 0;
    for (const std::uint64_t hash : hashes) {
        if (repeats && hash == std::exchange(previous, hash)) {
            continue;
        }
        const auto found = m_origins.find(hash);
        const Origin origin = found != m_origins.end() ? found->second : Origin{u"?"_s};
        if (origin.number > 0) {
            EXPECT_GT(origin.number, latest[origin.name]) << qPrintable(origin.name);
            latest[origin.name] = origin.number;
            ++m_seen[origin.name];
        }
        if (story.isEmpty() || story.constLast() != origin.name) {
            story += origin.name;
        }
    }
    return story.join(u' ').toStdString();
}

std::vector<CameraRecord> readCameraLog(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    const QByteArray content = file.readAll();
    std::vector<CameraRecord> log(static_cast<std::size_t>(content.size()) / sizeof(CameraRecord));
    std::memcpy(log.data(), content.data(), log.size() * sizeof(CameraRecord));
    return log;
}

std::vector<std::uint64_t> sentHashes(const std::vector<CameraRecord>& log)
{
    std::vector<std::uint64_t> hashes;
    for (const CameraRecord& record : log) {
        if (record.event == CameraEvent::Sent) {
            hashes.push_back(record.hash);
        }
    }
    return hashes;
}

std::string played(const QString& file)
{
    Program probe(u"ffprobe"_s, words("-v error -count_frames -show_entries "
                                      "stream=width,height,nb_read_frames -of csv=p=0") +
                                    QStringList{file});
    EXPECT_EQ(probe.awaitExit(), 0);
    EXPECT_EQ(probe.errors(), QString());
    return probe.output().trimmed().toStdString();
}

HoldUps::HoldUps()
    : m_thread([this](const std::stop_token& stop) {
        auto before = std::chrono::steady_clock::now();
        while (!stop.stop_requested()) {
            std::this_thread::sleep_until(before + 33ms);
            const auto now = std::chrono::steady_clock::now();
            m_gaps.push_back(now - std::exchange(before, now));
        }
    })
{}

std::vector<std::chrono::nanoseconds> HoldUps::end()
{
    m_thread.request_stop();
    if (m_thread.joinable()) {
        m_thread.join();
    }
    return m_gaps;
}

void expectNeverStarved(const std::vector<CameraRecord>& log, HoldUps& holdUps)
{
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.front().event, CameraEvent::Created);
    EXPECT_EQ(log.back().event, CameraEvent::Deleted);
    std::vector<std::chrono::nanoseconds> gaps;
    for (std::size_t i = 1; i < log.size(); ++i) {
        EXPECT_EQ(log[i].event == CameraEvent::Created, log[i - 1].event == CameraEvent::Deleted);
        if (log[i - 1].event == CameraEvent::Sent) {
            gaps.emplace_back(log[i].time - log[i - 1].time);
        }
    }
    ASSERT_FALSE(gaps.empty());
    // A busy machine delays the threads of a sanitized program, and so this one, by as much: then
    // the camera may wait longer, but neither often nor much longer than anybody.
    const auto inevitable = holdUps.end();
    const auto isLong = [](std::chrono::nanoseconds gap) {
        return gap > kLongestGap;
    };
    EXPECT_LE(std::ranges::count_if(gaps, isLong),
              std::ssize(gaps) / 10 + 3 * std::ranges::count_if(inevitable, isLong));
    EXPECT_LE(std::ranges::max(gaps), 3 * kLongestGap + 3 * std::ranges::max(inevitable));
}

} // namespace pevrix
