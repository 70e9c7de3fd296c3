#include "ui/UpdateChecker.h"

#include <QDesktopServices>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

constexpr QLatin1StringView kOwnVersion(PEVRIX_VERSION);

// An answer is a line of text. The connection to a server that sends more than this is closed.
constexpr qint64 kMaxAnswerBytes = qint64{64} * 1024;

// A browser opens it: another scheme may start any program, or show a page that anybody on the way
// has changed.
bool isPage(const QUrl& url)
{
    return url.isValid() && url.scheme() == "https"_L1 && !url.host().isEmpty();
}

} // namespace

UpdateChecker::UpdateChecker(const UpdateSite& site, QObject* parent)
    : QObject(parent)
    , m_site(site)
    , m_downloadUrl(site.siteUrl + u"/download"_s)
{}

void UpdateChecker::check()
{
    if (!m_manager) {
        m_manager = new QNetworkAccessManager(this);
    }
    QNetworkRequest request(m_site.endpoint);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      u"Pevrix/%1 (phone webcam)"_s.arg(kOwnVersion));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setTransferTimeout(m_site.timeout);
    QNetworkReply* reply = m_manager->get(request);
    connect(reply, &QNetworkReply::readyRead, this, [reply] {
        if (reply->bytesAvailable() > kMaxAnswerBytes) {
            reply->abort();
        }
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply] { onFinished(*reply); });
}

void UpdateChecker::onFinished(QNetworkReply& reply)
{
    reply.deleteLater();
    if (reply.error() == QNetworkReply::NoError) {
        takeAnswer(reply.readAll());
    }
}

void UpdateChecker::takeAnswer(const QByteArray& body)
{
    const QJsonObject answer = QJsonDocument::fromJson(body).object(); // empty if it is none
    const QString version = answer["version"_L1].toString();
    if (version.isEmpty()) {
        return;
    }
    // Also beside an older version: the page may have moved.
    if (const QString url = answer["url"_L1].toString(); isPage(QUrl(url, QUrl::StrictMode))) {
        m_downloadUrl = url;
    }
    if (QVersionNumber::fromString(version) > QVersionNumber::fromString(kOwnVersion)) {
        m_latestVersion = version;
        m_available = true;
        Q_EMIT availableChanged();
    }
}

void UpdateChecker::openDownload()
{
    QDesktopServices::openUrl(QUrl(m_downloadUrl));
}

} // namespace pevrix
