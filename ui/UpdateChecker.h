#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

#include <chrono>

class QNetworkAccessManager;
class QNetworkReply;

namespace pevrix {

// Where the vendor is asked, and how long an answer may take.
struct UpdateSite
{
    QString siteUrl; // root of the web site, without a slash at its end
    QUrl endpoint;   // answers with a JSON object: "version" and optionally "url"
    std::chrono::milliseconds timeout{15000};
};

// Asks the vendor whether a newer version exists. Best effort: any failure leaves everything as it
// is and is not reported. An update that was found stays available until the program ends. GUI
// thread.
class UpdateChecker final : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool available READ available NOTIFY availableChanged)
    Q_PROPERTY(QString latestVersion READ latestVersion NOTIFY availableChanged)
    Q_PROPERTY(QString siteUrl READ siteUrl CONSTANT)

public:
    explicit UpdateChecker(const UpdateSite& site, QObject* parent = nullptr);

    [[nodiscard]] bool available() const { return m_available; }
    [[nodiscard]] QString latestVersion() const { return m_latestVersion; }

    // The root of the vendor's web site, for links to its pages.
    [[nodiscard]] QString siteUrl() const { return m_site.siteUrl; }

    // The page that openDownload() opens: the vendor's own until an answer names another one, of
    // the scheme https.
    [[nodiscard]] QString downloadUrl() const { return m_downloadUrl; }

public Q_SLOTS:
    // Sends one request and returns at once.
    void check();

    // Opens the download page in the system's browser.
    void openDownload();

Q_SIGNALS:
    void availableChanged();

private:
    void onFinished(QNetworkReply& reply);
    void takeAnswer(const QByteArray& body);

    const UpdateSite m_site;
    QNetworkAccessManager* m_manager = nullptr; // made by the first check()
    bool m_available = false;
    QString m_latestVersion;
    QString m_downloadUrl;
};

} // namespace pevrix
