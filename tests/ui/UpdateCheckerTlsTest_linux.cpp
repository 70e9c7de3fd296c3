// The update check over a real encrypted connection. Windows has the same code above another
// library for it, which does not take certificates from files.
#include "tools/doubles/WaitUntil.h"
#include "ui/UpdateChecker.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>

using namespace Qt::StringLiterals;
using pevrix::UpdateChecker;

namespace {

struct Identity
{
    explicit Identity(const QString& name)
    {
        const QString path = u"" PEVRIX_TEST_DATA "/tls/"_s + name;
        certificate = QSslCertificate::fromPath(path + u".pem"_s).value(0);
        QFile file(path + u".key"_s);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        key = QSslKey(&file, QSsl::Ec);
    }

    QSslCertificate certificate;
    QSslKey key;
};

// Whether the check believes a server of this identity, which the system trusts or not.
bool believes(const Identity& identity, bool trusted)
{
    QSslServer server;
    QSslConfiguration own = QSslConfiguration::defaultConfiguration();
    own.setLocalCertificate(identity.certificate);
    own.setPrivateKey(identity.key);
    server.setSslConfiguration(own);
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QSslServer::pendingConnectionAvailable, &server, [&server] {
        QTcpSocket* socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket] {
            socket->readAll();
            socket->write("HTTP/1.1 200 OK\r\nContent-Length: 17\r\n\r\n{\"version\":\"1.2\"}");
        });
    });

    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration system = before;
    system.setCaCertificates(trusted ? QList{identity.certificate} : QList<QSslCertificate>());
    QSslConfiguration::setDefaultConfiguration(system);
    UpdateChecker checker({.siteUrl = u"https://site.example"_s,
                           .endpoint = QUrl(u"https://localhost:%1/"_s.arg(server.serverPort()))});
    checker.check();
    EXPECT_TRUE(
        pevrix::waitUntil([&] { return checker.findChildren<QNetworkReply*>().isEmpty(); }));
    QSslConfiguration::setDefaultConfiguration(before);
    return checker.available();
}

} // namespace

TEST(UpdateCheckerTls, BelievesOnlyAServerThatProvesItsName)
{
    ASSERT_TRUE(QSslSocket::supportsSsl());
    EXPECT_TRUE(believes(Identity(u"good"_s), true));
    EXPECT_FALSE(believes(Identity(u"good"_s), false)) << "of an unknown authority";
    EXPECT_FALSE(believes(Identity(u"expired"_s), true));
    EXPECT_FALSE(believes(Identity(u"other-name"_s), true));
}
