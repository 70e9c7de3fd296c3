#pragma once

#include "tests/support/PhoneProcess.h"
#include "tests/support/TestController.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QSettings>
#include <QTemporaryDir>

#include <chrono>
#include <memory>

namespace pevrix {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// Exit codes of the simulated phone.
constexpr int kDone = 0;
constexpr int kRefused = 4;
constexpr int kLost = 5;

// The real controller with ports, settings and token of its own, and real simulated phones.
class AppControllerTest : public testing::Test
{
protected:
    [[nodiscard]] ControllerOptions options(quint16 usbPort = kNobodysPort) const
    {
        ControllerOptions options = testOptions(m_folder.path(), usbPort);
        options.system = m_system;
        options.firewallInterval = m_firewallInterval;
        return options;
    }

    // A program start on the same settings.
    void startApp(quint16 usbPort = kNobodysPort)
    {
        m_app.reset(); // before the next one reads its settings
        m_app = std::make_unique<AppController>(options(usbPort));
        QObject::connect(m_app.get(), &AppController::frameReady, m_app.get(),
                         [this](const QImage& image) { m_imageSize = image.size(); });
        QObject::connect(m_app.get(), &AppController::changed, m_app.get(),
                         [this, app = m_app.get()] { note(*app); });
        m_app->start();
        ASSERT_GT(m_app->port(), 0);
    }

    void note(const AppController& app)
    {
        if (app.usbAvailable() != m_availability.endsWith(u'+')) {
            m_availability += app.usbAvailable() ? u'+' : u'-';
        }
        m_arrivals += app.phones().size() > m_phonesSeen ? 1 : 0;
        m_phonesSeen = app.phones().size();
    }

    [[nodiscard]] QString path(const char* name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    [[nodiscard]] QString token() const
    {
        QFile file(path("pairing-token.txt"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed()
                                              : QString();
    }

    [[nodiscard]] std::unique_ptr<PhoneProcess> wifiPhone(const char* arguments = "",
                                                          const QString& ownToken = {}) const
    {
        return std::make_unique<PhoneProcess>(
            words("--size 160x120") + words(arguments) +
            QStringList{u"--port"_s, QString::number(m_app->port()), u"--token"_s,
                        ownToken.isEmpty() ? token() : ownToken});
    }

    // Phones on a cable and a program that looks for them.
    [[nodiscard]] std::unique_ptr<PhoneProcess> startAppWithCable(const char* arguments = "")
    {
        auto phone = cablePhone(0, arguments);
        const QString announcement = u"usbmux daemon on port "_s;
        EXPECT_TRUE(waitFor([&] { return phone->output().contains(announcement); }));
        startApp(phone->output().section(announcement, 1).section(u'\n', 0, 0).toUShort());
        return phone;
    }

    [[nodiscard]] static std::unique_ptr<PhoneProcess> cablePhone(quint16 port,
                                                                  const char* arguments = "")
    {
        return std::make_unique<PhoneProcess>(
            words("--usbmux --size 160x120") + words(arguments) +
            QStringList{u"--usbmux-port"_s, QString::number(port)});
    }

    [[nodiscard]] QVariantMap phone(qsizetype index = 0) const
    {
        return m_app->phones().value(index).toMap();
    }

    [[nodiscard]] bool waitForPhones(qsizetype count) const
    {
        return waitFor([&] { return m_app->phones().size() == count; });
    }

    // Pictures of this size come, from now on.
    [[nodiscard]] bool waitForVideo(QSize size = {160, 120})
    {
        m_imageSize = {};
        const qint64 decoded = m_app->framesDecoded();
        return waitFor([&] {
            return m_app->live() && m_imageSize == size && m_app->framesDecoded() >= decoded + 3;
        });
    }

    [[nodiscard]] QVariant stored(const char* key) const
    {
        return QSettings(path("settings.ini"), QSettings::IniFormat).value(QLatin1StringView(key));
    }

    QTemporaryDir m_folder;
    SystemFunctions m_system;
    std::chrono::milliseconds m_firewallInterval{10'000};
    std::unique_ptr<AppController> m_app;
    QSize m_imageSize;      // of the last picture
    QString m_availability; // + and - for each change of the USB service
    qsizetype m_phonesSeen = 0;
    int m_arrivals = 0;
};

} // namespace pevrix
