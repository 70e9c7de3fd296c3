#include "ui/UpdateChecker.h"

#include "tools/doubles/WaitUntil.h"

#include <gtest/gtest.h>

#include <QNetworkReply>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

using namespace Qt::StringLiterals;
using pevrix::UpdateChecker;

namespace {

// A real HTTP server on a port of its own. It answers every request alike, but for the path
// /moved, and not at all when it has no answer.
class UpdateCheckerTest : public testing::Test
{
protected:
    UpdateCheckerTest()
    {
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                request = socket->readAll();
                socket->write(request.startsWith("GET /moved ") ? ok(kNewer) : m_answer);
            });
        });
    }

    static QByteArray ok(const QByteArray& body)
    {
        return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) +
               "\r\n\r\n" + body;
    }

    // Returns when the check has ended, one way or the other.
    std::unique_ptr<UpdateChecker> check(const QByteArray& answer)
    {
        m_answer = answer;
        const QUrl endpoint(u"http://127.0.0.1:%1/api/ping.php"_s.arg(m_server.serverPort()));
        auto checker = std::make_unique<UpdateChecker>(pevrix::UpdateSite{
            .siteUrl = u"https://site.example"_s,
            .endpoint = endpoint,
            .timeout = std::chrono::milliseconds(answer.isEmpty() ? 100 : 60000)});
        const QSignalSpy changes(checker.get(), &UpdateChecker::availableChanged);
        checker->check();
        EXPECT_TRUE(pevrix::waitUntil([&] { // the reply goes when it has been dealt with
            return checker->findChildren<QNetworkReply*>().isEmpty();
        }));
        EXPECT_EQ(changes.count(), checker->available() ? 1 : 0);
        return checker;
    }

    static constexpr auto kNewer = R"({"version":"1.2","url":"https://new.example/get"})";
    QByteArray request;

private:
    QTcpServer m_server;
    QByteArray m_answer;
};

} // namespace

TEST_F(UpdateCheckerTest, FindsOnlyVersionsThatAreReallyNewer)
{
    struct Case
    {
        QByteArray version;
        bool newer;
    };
    for (const auto& [version, newer] :
         {Case{"1.2", true}, Case{"1.10", true}, Case{"2", true}, Case{"1.1.0", true},
          Case{"1.1", false}, Case{"1.0.9", false}, Case{"next", false}}) {
        const auto checker = check(ok(R"({"version":")" + version + R"("})"));
        EXPECT_EQ(checker->available(), newer) << version.constData();
        EXPECT_EQ(checker->latestVersion(), newer ? QString::fromLatin1(version) : QString());
        EXPECT_EQ(checker->downloadUrl(), u"https://site.example/download"_s);
    }
    EXPECT_TRUE(request.startsWith("GET /api/ping.php HTTP/1.1\r\n")) << request.constData();
    EXPECT_TRUE(request.contains(": Pevrix/1.1 (phone webcam)\r\n")) << request.constData();
}

TEST_F(UpdateCheckerTest, TakesTheDownloadPageFromTheAnswerWhateverItsVersion)
{
    EXPECT_EQ(check(ok(kNewer))->downloadUrl(), u"https://new.example/get"_s);
    const auto older = check(ok(R"({"version":"1.0","url":"https://new.example/get"})"));
    EXPECT_EQ(older->downloadUrl(), u"https://new.example/get"_s);
    EXPECT_FALSE(older->available());
    for (const char* page :
         {"http://new.example/get", "file:///etc/passwd", "javascript:alert(1)", "//new.example",
          "HTTPS:get", "https://", "https://new example/", "get", "C:\\\\Windows\\\\calc.exe"}) {
        const auto checker = check(ok(R"({"version":"1.2","url":")" + QByteArray(page) + R"("})"));
        EXPECT_TRUE(checker->available()) << page;
        EXPECT_EQ(checker->downloadUrl(), u"https://site.example/download"_s) << page;
    }
}

TEST_F(UpdateCheckerTest, StaysSilentWhateverGoesWrong)
{
    const QByteArray body = kNewer;
    const QByteArray padding(1000 * 1000, ' ');
    for (const QByteArray& answer :
         {ok("[" + body + "]"), ok(R"({"version":"","url":"https://new.example"})"),
          ok(R"({"version":12,"url":"https://new.example"})"), ok(body.chopped(1)), ok(""),
          ok(body + padding), ok(body).replace("200 OK", "500 Internal Server Error"),
          QByteArray("not HTTP at all\r\n\r\n"), QByteArray() /* silence until the time is up */}) {
        const auto checker = check(answer);
        EXPECT_FALSE(checker->available()) << answer.left(100).constData();
        EXPECT_EQ(checker->downloadUrl(), u"https://site.example/download"_s);
    }
}

TEST_F(UpdateCheckerTest, FollowsARedirect)
{
    const auto checker =
        check("HTTP/1.1 302 Found\r\nLocation: /moved\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(checker->latestVersion(), u"1.2"_s);
}
