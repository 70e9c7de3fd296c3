// The whole program but its entry point, without a display: with simulated phones, and a camera
// library that shows nothing.
#include "app/Shell.h"
#include "app/SingleInstance.h"
#include "qml/Interface.h"
#include "tests/support/Clip.h"
#include "tests/support/TestController.h"
#include "tools/doubles/Program.h"
#include "tools/phonesim/Phone.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSettings>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace pevrix {

namespace {

class ShellTest : public testing::Test
{
protected:
    ShellTest()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        registerInterface();
        EXPECT_TRUE(m_site.listen(QHostAddress::LocalHost));
    }

    void start(const std::optional<CaptureOptions>& picture = {})
    {
        ShellOptions options;
        options.controller = testOptions(m_folder.path(), kNobodysPort);
        options.site.endpoint = QUrl(u"http://127.0.0.1:%1/"_s.arg(m_site.serverPort()));
        options.picture = picture;
        options.isTrayAvailable = [this] {
            return m_trayAvailable;
        };
        options.trayInterval = 1ms;
        m_shell.emplace(options, m_instance);
        ASSERT_TRUE(m_shell->start());
        m_shell->controller().setRecordingFolder(m_folder.path());
        QObject::connect(engine(), &QQmlEngine::warnings, &*m_shell, [](const auto& warnings) {
            ADD_FAILURE() << qPrintable(warnings[0].toString());
        });
        // Once the window is seen, the vendor is asked for a newer version.
        EXPECT_TRUE(waitUntil([&] { return m_site.nextPendingConnection() != nullptr; }));
    }

    // Runs the event loop until the program ends it; -1 when it never does.
    [[nodiscard]] int run()
    {
        QTimer::singleShot(1min, &*m_shell, [] { QCoreApplication::exit(-1); });
        return QApplication::exec();
    }

    [[nodiscard]] QQmlEngine* engine() { return qmlEngine(m_shell->window()); }

    // The entry of the tray's menu with this text; null when there is none.
    [[nodiscard]] QAction* entry(const char* text)
    {
        for (QAction* action : m_shell->tray().icon().contextMenu()->actions()) {
            if (action->text() == QLatin1StringView(text)) {
                return action;
            }
        }
        return nullptr;
    }

    // Streams from now on, if it is wanted.
    [[nodiscard]] std::unique_ptr<Phone> startPhone(const QString& name)
    {
        QFile token(m_folder.filePath(u"pairing-token.txt"_s));
        EXPECT_TRUE(token.open(QIODevice::ReadOnly));
        auto phone =
            std::make_unique<Phone>(m_clip.source(), PhoneIdentity{.deviceId = name, .name = name});
        phone->connectTo(u"127.0.0.1"_s, static_cast<quint16>(m_shell->controller().port()),
                         QString::fromUtf8(token.readAll()).trimmed());
        EXPECT_TRUE(waitUntil([&] { return phone->isAccepted(); }));
        return phone;
    }

    const Clip m_clip{"live.h264", {160, 96}};
    QTemporaryDir m_folder;
    QTcpServer m_site; // of the vendor
    SingleInstance m_instance{m_folder.path()};
    bool m_trayAvailable = true;
    std::optional<Shell> m_shell;
};

} // namespace

TEST_F(ShellTest, TheTrayShowsWhatHappensAndSteersTheProgram)
{
    start();
    AppController& controller = m_shell->controller();
    QQuickWindow& window = *m_shell->window();
    EXPECT_FALSE(entry("Pause")->isEnabled());
    const auto phone = startPhone(u"Phone"_s);
    ASSERT_TRUE(waitUntil([&] { return entry("Pause")->isEnabled(); }));
    entry("Pause")->trigger();
    EXPECT_FALSE(controller.outputEnabled());
    entry("Resume")->trigger();
    EXPECT_TRUE(controller.outputEnabled());

    EXPECT_FALSE(controller.settings().trayHintShown());
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(controller.settings().trayHintShown());
    entry("Show Pevrix")->trigger();
    EXPECT_TRUE(window.isVisible());
    using Reason = QSystemTrayIcon::ActivationReason;
    for (const auto& [reason, shows] :
         {std::pair(Reason::Trigger, true), std::pair(Reason::DoubleClick, true),
          std::pair(Reason::Context, false), std::pair(Reason::MiddleClick, false)}) {
        window.hide();
        Q_EMIT m_shell->tray().icon().activated(reason);
        EXPECT_EQ(window.isVisible(), shows) << reason;
    }
    window.showMinimized();
    Q_EMIT m_instance.windowAskedFor();
    EXPECT_EQ(window.visibility(), QWindow::Windowed);

    m_trayAvailable = false;
    window.hide();
    EXPECT_TRUE(waitUntil([&] { return window.isVisible(); })); // who else would bring it back?

    const QVariant translator = engine()->rootContext()->contextProperty(u"i18n"_s);
    translator.value<Translator*>()->setLanguage(u"de"_s);
    EXPECT_TRUE(entry("Beenden") && !entry("Quit"));

    const QRect place(30, 40, 600, 660);
    window.setGeometry(place);
    EXPECT_TRUE(waitUntil([&] { return controller.settings().windowState().geometry == place; }));
    window.showMaximized();
    letEventsRunFor(1ms);
    QTimer::singleShot(0, &*m_shell, [this] { entry("Beenden")->trigger(); });
    EXPECT_EQ(run(), 0);
    m_shell.reset();
    start();
    EXPECT_EQ(m_shell->window()->visibility(), QWindow::Maximized);
    const WindowPlace kept(m_shell->controller().settings());
    const QVariantMap as = kept.initialProperties(false);
    EXPECT_EQ(QRect(as[u"x"_s].toInt(), as[u"y"_s].toInt(), as[u"width"_s].toInt(),
                    as[u"height"_s].toInt()),
              place); // to go back to
    EXPECT_EQ(kept.initialProperties(true)[u"visible"_s], QVariant(false));
    EXPECT_FALSE(m_shell->window()->property("trayAvailable").toBool());
}

// When a session ends nothing is destroyed once the event loop has ended.
TEST_F(ShellTest, CompletesARecordingBeforeItEnds)
{
    start();
    AppController& controller = m_shell->controller();
    const auto phone = startPhone(u"Phone"_s);
    ASSERT_TRUE(waitUntil([&] { return controller.framesDecoded() > 3; }));
    controller.toggleRecording();
    ASSERT_TRUE(waitUntil([&] { return controller.framesDecoded() > 20; }));
    QSignalSpy ends(&controller, &AppController::recordingEnded);
    QTimer::singleShot(0, &*m_shell, [this] { entry("Quit")->trigger(); });
    EXPECT_EQ(run(), 0);
    ASSERT_EQ(ends.size(), 1);
    EXPECT_EQ(ends[0][0], u"saved"_s);
}

// The delay is far beyond this test's patience.
TEST_F(ShellTest, TakesAPictureSoonAfterTheFirstFrameOfTheWantedPhone)
{
    for (const QString& wanted : {QString(), u"Second"_s}) {
        CaptureOptions picture;
        picture.output = m_folder.filePath(wanted + u".png"_s);
        picture.phone = wanted;
        picture.delay = 1h;
        start(picture);
        const auto first = startPhone(u"First"_s);
        const auto second = startPhone(u"Second"_s);
        EXPECT_EQ(run(), 0);
        EXPECT_EQ(m_shell->controller().phoneName(), wanted.isEmpty() ? u"First"_s : wanted);
        EXPECT_EQ(QImage(picture.output).size(), QSize(540, 640));
        m_shell.reset();
    }
}

} // namespace pevrix
