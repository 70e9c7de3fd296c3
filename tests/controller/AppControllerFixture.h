#pragma once

#include "tests/support/Clip.h"
#include "tests/support/TestController.h"
#include "tests/support/TestPhone.h"
#include "tools/doubles/Testcam.h"
#include "tools/doubles/WaitUntil.h"
#include "tools/phonesim/Phone.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <chrono>
#include <memory>
#include <optional>

namespace pevrix {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// The real controller with ports, settings and token of its own, a camera library that remembers
// what was done to it, and phones that speak to it over real sockets.
class AppControllerTest : public testing::Test
{
protected:
    [[nodiscard]] ControllerOptions options(quint16 usbPort = kNobodysPort) const
    {
        ControllerOptions options = testOptions(m_folder.path(), usbPort);
        options.port = m_port;
        options.system = m_system;
        options.firewallInterval = m_firewallInterval;
        if (m_endpoints) {
            options.findEndpoints = [this](quint16 port) {
                return QStringList(*m_endpoints).replaceInStrings(u"PORT"_s, QString::number(port));
            };
            options.addressInterval = 50ms;
        }
        return options;
    }

    // A program start on the same settings.
    void startApp(quint16 usbPort = kNobodysPort)
    {
        m_app.reset(); // before the next one reads its settings
        m_app = std::make_unique<AppController>(options(usbPort));
        QObject::connect(m_app.get(), &AppController::frameReady, m_app.get(),
                         [this](const QImage& image) {
                             m_imageSize = image.size();
                             ++m_imagesShown;
                         });
        m_app->start();
        ASSERT_GT(m_app->port(), 0);
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

    [[nodiscard]] std::unique_ptr<Phone> wifiPhone(const PhoneIdentity& identity = {},
                                                   const Clip* clip = nullptr,
                                                   const QString& ownToken = {}) const
    {
        auto phone = std::make_unique<Phone>((clip ? *clip : m_clip).source(), identity);
        phone->connectTo(u"127.0.0.1"_s, static_cast<quint16>(m_app->port()),
                         ownToken.isEmpty() ? token() : ownToken);
        return phone;
    }

    // A phone of the test's own bytes that has said hello.
    [[nodiscard]] std::unique_ptr<TestPhone> greet(const QByteArray& deviceId,
                                                   const char* pc = "127.0.0.1") const
    {
        auto phone = std::make_unique<TestPhone>(static_cast<quint16>(m_app->port()),
                                                 QHostAddress(QLatin1StringView(pc)));
        EXPECT_TRUE(phone->sendAndSettle(helloMessage(deviceId, token().toUtf8())));
        return phone;
    }

    [[nodiscard]] static bool waitForEnd(const Phone& phone)
    {
        return waitUntil([&] { return phone.state() == Phone::State::Over; });
    }

    [[nodiscard]] QVariantMap phone(qsizetype index = 0) const
    {
        return m_app->phones().value(index).toMap();
    }

    [[nodiscard]] bool waitForPhones(qsizetype count) const
    {
        return waitUntil([&] { return m_app->phones().size() == count; });
    }

    // Pictures of this clip come, from now on.
    [[nodiscard]] bool waitForVideo(const Clip* clip = nullptr)
    {
        const QSize size = (clip ? *clip : m_clip).size;
        m_imageSize = {};
        const qint64 decoded = m_app->framesDecoded();
        return waitUntil([&] {
            return m_app->live() && m_imageSize == size && m_app->framesDecoded() >= decoded + 3;
        });
    }

    // The settings as they lie on the disk.
    [[nodiscard]] QByteArray stored() const
    {
        QFile file(path("settings.ini"));
        return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QSize cameraSize() const { return {m_camera.width, m_camera.height}; }

    const Clip m_clip{"live.h264", {160, 96}};
    const CameraLibrary m_library = loadCameraLibrary(TESTCAM_NAME); // keeps its state alive
    TestcamState& m_camera =
        *reinterpret_cast<TestcamStateFunction>(cameraEntryPoint(m_library, "testcamState"))();
    QTemporaryDir m_folder;
    quint16 m_port = 0; // to listen on, 0: any
    SystemFunctions m_system;
    std::chrono::milliseconds m_firewallInterval{10'000};
    std::optional<QStringList> m_endpoints; // of this PC; with PORT for it; none: its real ones
    std::unique_ptr<AppController> m_app;
    QSize m_imageSize; // of the last picture
    int m_imagesShown = 0;
};

} // namespace pevrix
