#include "tools/phonesim/MuxDaemon.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/PatternSource_linux.h"
#include "tools/phonesim/Phone.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>

#include <csignal>
#include <cstdio>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace pevrix {

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 10s; // with the token file, and with a PC that does not listen yet
constexpr auto kLook = 50ms;    // at the token file and for signals
constexpr qint64 kMaxTokenBytes = 4096; // a token is some dozen characters
constexpr int kDevice = 1;

enum ExitCode
{
    kDone = 0,
    kNoConnection = 2,
    kRefused = 3,
    kLost = 4,
};

volatile std::sig_atomic_t g_stopWanted = 0;

void onSignal(int)
{
    g_stopWanted = 1;
}

void say(const QString& text)
{
    std::puts(qPrintable(text));
    std::fflush(stdout); // whoever reads a pipe wants every line at once
}

// The phone from its first attempt to connect to its end, and what is said of it.
class Run : public QObject
{
public:
    explicit Run(Options options)
        : m_options(std::move(options))
    {
        connect(&m_look, &QTimer::timeout, this, &Run::look);
        connect(&m_daemon, &MuxDaemon::tunnelOpened, this,
                [this](int, QTcpSocket* socket) { makePhone()->takeTunnel(socket); });
        // One connection at a time, as the app has it.
        m_daemon.answer = [this](int) {
            const bool free = !m_phone || m_phone->state() == Phone::State::Over;
            return MuxDaemon::result(free ? MuxDaemon::kSuccess : MuxDaemon::kRefused);
        };
    }

    void start()
    {
        m_clock.start();
        m_look.start(kLook);
        std::signal(SIGINT, onSignal);
        std::signal(SIGTERM, onSignal);
        if (m_options.usbmux) {
            playDaemon();
        }
    }

private:
    void playDaemon()
    {
        if (!m_daemon.appear(m_options.usbmuxPort)) {
            end(kNoConnection, u"cannot play the usbmux daemon on port %1 of this machine: %2"_s
                                   .arg(m_options.usbmuxPort)
                                   .arg(m_daemon.errorString()));
            return;
        }
        m_daemon.attach(kDevice);
        say(u"usbmux daemon on port %1"_s.arg(m_daemon.port()));
    }

    void look()
    {
        if (g_stopWanted != 0 && !m_stopping) {
            m_stopping = true;
            std::signal(SIGINT, SIG_DFL); // an impatient user can end it now
            if (m_phone && m_phone->isAccepted()) {
                m_phone->leave();
            } else {
                end(kDone);
            }
        } else if (!m_options.usbmux && !m_stopping && !m_phone) {
            connectToPc();
        }
    }

    // The program writes its token file some time after it was started, so the file may be missing
    // or still empty at the first look.
    void connectToPc()
    {
        QFile file(m_options.tokenFile);
        const bool opened = !m_options.tokenFile.isEmpty() && file.open(QIODevice::ReadOnly);
        const QString token =
            opened ? QString::fromUtf8(file.read(kMaxTokenBytes)).trimmed() : QString();
        if (!token.isEmpty() || m_options.tokenFile.isEmpty()) {
            makePhone()->connectTo(m_options.host, m_options.port, token);
        } else if (m_patience.hasExpired()) {
            end(kNoConnection, u"no token in \"%1\""_s.arg(m_options.tokenFile));
        }
    }

    Phone* makePhone()
    {
        const StreamDescription stream{m_options.size.width(), m_options.size.height(),
                                       m_options.fps};
        m_phone = std::make_unique<Phone>(
            std::make_unique<PatternSource>(stream, m_options.name),
            PhoneIdentity{.deviceId = u"phonesim-"_s + m_options.name, .name = m_options.name});
        connect(m_phone.get(), &Phone::stateChanged, this, &Run::follow);
        connect(m_phone.get(), &Phone::frameSent, this, [this](QByteArrayView bytes) {
            ++m_frames;
            m_bytes += bytes.size();
        });
        m_planned = false;
        return m_phone.get();
    }

    void follow()
    {
        switch (m_phone->state()) {
        case Phone::State::Connecting:
            break;
        case Phone::State::Greeting:
            m_met = true;
            say(u"connected"_s);
            break;
        case Phone::State::Holding:
            say(u"the PC wants no video"_s);
            plan();
            break;
        case Phone::State::Streaming:
            say(u"the PC wants video"_s);
            plan();
            break;
        case Phone::State::Over:
            m_dropped += m_phone->framesDropped();
            // Later, because the phone may be freed in response.
            QMetaObject::invokeMethod(
                this, [this, refusal = m_phone->refusal()] { onOver(refusal); },
                Qt::QueuedConnection);
            break;
        }
    }

    // Once for each connection.
    void plan()
    {
        if (std::exchange(m_planned, true)) {
            return;
        }
        Phone* phone = m_phone.get();
        const auto after = [phone](Options::Time time, auto what) {
            if (time) {
                QTimer::singleShot(*time, Qt::PreciseTimer, phone, what);
            }
        };
        after(m_options.resizeAfter, [this, phone] { phone->resize(m_options.resizeTo); });
        after(m_options.stallAfter, [this, phone, after] {
            phone->setStalled(true);
            after(m_options.stallFor, [phone] { phone->setStalled(false); });
        });
    }

    void onOver(const QString& refusal)
    {
        if (m_stopping) {
            end(kDone);
        } else if (!refusal.isEmpty()) {
            end(kRefused, u"refused: "_s + refusal);
        } else if (m_options.usbmux) {
            say(u"the connection ended"_s); // the PC may come again
        } else if (m_met) {
            end(kLost, u"the connection was closed by the PC or the network"_s);
        } else if (m_patience.hasExpired()) {
            end(kNoConnection,
                u"cannot connect to %1:%2"_s.arg(m_options.host).arg(m_options.port));
        } else {
            m_phone.reset(); // the next look tries again
        }
    }

    void end(ExitCode code, const QString& reason = {})
    {
        if (!reason.isEmpty()) {
            std::fprintf(stderr, "phonesim: %s\n", qPrintable(reason));
        }
        say(u"summary exit=%1 seconds=%2 frames=%3 dropped=%4 bytes=%5"_s.arg(code)
                .arg(static_cast<double>(m_clock.elapsed()) / 1000, 0, 'f', 1)
                .arg(m_frames)
                .arg(m_dropped)
                .arg(m_bytes));
        m_look.stop();
        QCoreApplication::exit(code);
    }

    const Options m_options;
    QElapsedTimer m_clock;
    QDeadlineTimer m_patience{kPatience};
    QTimer m_look;
    MuxDaemon m_daemon;
    std::unique_ptr<Phone> m_phone;
    bool m_planned = false;
    bool m_met = false; // the PC listens
    bool m_stopping = false;
    qint64 m_frames = 0;
    qint64 m_dropped = 0;
    qint64 m_bytes = 0;
};

} // namespace

} // namespace pevrix

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it draws, but shows nothing
    const QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"phonesim"_s);
    pevrix::Run run(pevrix::readOptions(application));
    QMetaObject::invokeMethod(&run, &pevrix::Run::start, Qt::QueuedConnection);
    return QCoreApplication::exec();
}
