// What the whole program adds to a picture's way: from the moment a phone writes an access unit to
// its socket until the controller hands the picture on (to the camera's mailbox and the preview)
// and until the camera library gets it, beside the time that decoding alone takes. And the
// processor time of that, beside the ffmpeg program with one thread that decodes the same stream in
// real time to nothing; the ffmpeg program's start, measured with one picture, is taken off.
#include "bench/BenchPhone.h"
#include "bench/FfmpegPeer.h"
#include "bench/VideoBench.h"
#include "controller/AppController.h"
#include "picture/PictureSize.h"
#include "tools/doubles/CameraLog.h"
#include "tools/doubles/Testcam.h"
#include "video/H264Decoder.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>

#include <cmath>
#include <map>
#include <string>

using namespace pevrix;
using namespace Qt::StringLiterals;
using bench::BenchPhone;
using Clock = BenchPhone::Clock;

namespace {

struct Format
{
    int width;
    int height;
    int fps;
    int seconds;
    const char* bitrate;
};

// When a picture was seen, and which one.
struct Sighting
{
    Clock::time_point time;
    std::uint64_t hash = 0;
};

struct Times
{
    std::vector<double> milliseconds;

    [[nodiscard]] double quantile(double share) const
    {
        std::vector<double> sorted = milliseconds;
        std::ranges::sort(sorted);
        const auto last = static_cast<double>(sorted.size() - 1);
        return sorted.empty() ? std::nan("")
                              : sorted[static_cast<std::size_t>(std::lround(share * last))];
    }
};

double millisecondsBetween(Clock::time_point from, Clock::time_point to)
{
    return std::chrono::duration<double, std::milli>(to - from).count();
}

// Enough of a picture to tell it from the others of its stream at no cost.
std::uint64_t glance(const std::uint8_t* pixels, const Format& format)
{
    const std::size_t row = pictureBytes(format.width, 1);
    return pictureHash(pixels + row * static_cast<std::size_t>(format.height / 2), 8 * row);
}

// A stream, its pictures and what it costs to decode it, as often as one likes.
struct Material
{
    Material(const Format& theFormat, const QTemporaryDir& folder)
        : format(theFormat)
        , file(folder.filePath(QString::number(format.height) + u".h264"_s).toStdString())
    {
        bench::encodeGrain(format.width, format.height, format.fps, format.fps * format.seconds,
                           format.bitrate, file);
        QFile input(QString::fromStdString(file));
        if (!input.open(QIODevice::ReadOnly)) {
            std::exit(EXIT_FAILURE);
        }
        const QByteArray content = input.readAll();
        bytes.assign(content.begin(), content.end());
        units = splitAccessUnits(bytes);
        decodeAlone();
    }

    void decodeAlone()
    {
        int number = 0;
        H264Decoder decoder([&](const std::uint8_t* bgr, int, int, std::int64_t) {
            numbers[glance(bgr, format)] = number++;
        });
        bool ready = decoder.initialize(static_cast<std::uint32_t>(format.width),
                                        static_cast<std::uint32_t>(format.height));
        for (const AccessUnit& unit : units) {
            const auto before = Clock::now();
            decoder.feed(unit.bytes, 0);
            decodeTimes.milliseconds.push_back(millisecondsBetween(before, Clock::now()));
        }
        if (!ready || numbers.size() != units.size()) {
            std::fprintf(stderr, "%zu pictures of %zu\n", numbers.size(), units.size());
            std::exit(EXIT_FAILURE);
        }
    }

    // From the writing of each picture's access unit until it was first seen.
    [[nodiscard]] Times latencies(const std::vector<Sighting>& sightings,
                                  const std::vector<Clock::time_point>& sentAt) const
    {
        Times times;
        int last = -1;
        for (const Sighting& sighting : sightings) {
            const auto found = numbers.find(sighting.hash);
            if (found == numbers.end() || found->second == last) {
                continue; // the camera is sent a picture until there is another
            }
            last = found->second;
            times.milliseconds.push_back(
                millisecondsBetween(sentAt[static_cast<std::size_t>(last)], sighting.time));
        }
        return times;
    }

    // Processor time for a second of the video.
    [[nodiscard]] double ffmpegCpu() const
    {
        std::vector<std::string> arguments{
            "-re", "-threads", "1", "-framerate", std::to_string(format.fps), "-i", file};
        const auto run = [&](std::vector<std::string> more) {
            more.insert(more.begin(), arguments.begin(), arguments.end());
            return bench::runFfmpeg(more);
        };
        const double whole = run({"-f", "null", "-"});
        return (whole - run({"-frames:v", "1", "-f", "null", "-"})) / format.seconds;
    }

    Format format;
    std::string file;
    std::vector<std::uint8_t> bytes;
    std::vector<AccessUnit> units;
    std::map<std::uint64_t, int> numbers; // of the pictures
    Times decodeTimes;
};

struct Outcome
{
    Times toDelivery;
    Times toCamera;
    double cpu = 0; // for a second of the video
};

class Camera
{
public:
    Camera()
        : m_library(loadCameraLibrary(PEVRIX_BENCH_CAMERA))
    {
        if (!m_library) {
            std::fprintf(stderr, "there is no camera library %s beside this program\n",
                         PEVRIX_BENCH_CAMERA);
            std::exit(EXIT_FAILURE);
        }
        m_state =
            reinterpret_cast<TestcamStateFunction>(cameraEntryPoint(m_library, "testcamState"))();
    }

    // While there is no camera; cards are of another size first and are left out.
    void watch(const Format& format, std::vector<Sighting>& sightings)
    {
        m_state->onSend = [this, format, &sightings](const std::uint8_t* pixels) {
            if (m_state->width == format.width && m_state->height == format.height) {
                sightings.push_back({Clock::now(), glance(pixels, format)});
            }
        };
    }

private:
    CameraLibrary m_library;
    TestcamState* m_state = nullptr;
};

Outcome stream(const Material& material, bool usb, Camera& camera)
{
    const QTemporaryDir folder;
    const Format& format = material.format;
    BenchPhone phone({format.width, format.height, format.fps}, material.units, usb);
    std::vector<Sighting> delivered;
    std::vector<Sighting> sent;
    delivered.reserve(material.units.size());
    sent.reserve(material.units.size() * 4);
    camera.watch(format, sent);
    {
        ControllerOptions options;
        options.port = 0;
        options.usb.port = phone.daemonPort();
        options.usb.tunnelInterval = std::chrono::milliseconds(50);
        options.settingsFile = folder.filePath(u"settings.ini"_s);
        options.tokenFolder = folder.path();
        options.cameraLibrary = PEVRIX_BENCH_CAMERA;
        AppController app(options);
        QObject::connect(&app, &AppController::frameReady, &app, [&](const QImage& image) {
            delivered.push_back({Clock::now(), glance(image.constBits(), format)});
        });
        app.start();
        QFile token(folder.filePath(u"pairing-token.txt"_s));
        if (!token.open(QIODevice::ReadOnly)) {
            std::exit(EXIT_FAILURE);
        }
        phone.begin(static_cast<quint16>(app.port()), token.readAll().trimmed());
        phone.waitUntilDone();
    }
    return {material.latencies(delivered, phone.sentAt()), material.latencies(sent, phone.sentAt()),
            phone.programCpuSeconds() / format.seconds};
}

void benchFormat(const Format& format, const QTemporaryDir& folder, Camera& camera)
{
    const Material material(format, folder);
    const Times& decode = material.decodeTimes;
    const double ffmpeg = material.ffmpegCpu();
    std::printf("%dx%d at %d, %.1f Mbit/s: decoding alone %.2f ms (99 %%: %.2f), "
                "ffmpeg %.1f ms CPU per second\n",
                format.width, format.height, format.fps,
                static_cast<double>(material.bytes.size()) * 8e-6 / format.seconds,
                decode.quantile(0.5), decode.quantile(0.99), ffmpeg * 1e3);
    for (const bool usb : {true, false}) {
        const Outcome outcome = stream(material, usb, camera);
        const std::string name = std::to_string(format.height) + (usb ? "_cable" : "_network");
        const auto row = [&](const char* what, const Times& times) {
            std::printf("  %-12s %-22s median %6.2f ms, 99 %% %6.2f ms (%zu of %zu pictures)\n",
                        usb ? "cable" : "network", what, times.quantile(0.5), times.quantile(0.99),
                        times.milliseconds.size(), material.units.size());
        };
        row("until handed on", outcome.toDelivery);
        row("until in the camera", outcome.toCamera);
        std::printf("  %-12s %.1f ms CPU per second of video\n", "", outcome.cpu * 1e3);
        std::printf("ratio latency_%s_handed_on_to_decode %.3f\n", name.c_str(),
                    outcome.toDelivery.quantile(0.5) / decode.quantile(0.5));
        std::printf("ratio cpu_%s_to_ffmpeg_null %.3f\n", name.c_str(), outcome.cpu / ffmpeg);
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    Camera camera;
    benchFormat({1280, 720, 30, 6, "4M"}, folder, camera);
    benchFormat({1920, 1080, 60, 5, "12M"}, folder, camera);
    return EXIT_SUCCESS;
}
