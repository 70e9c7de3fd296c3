#include "controller/Card.h"
#include "qml/Interface.h"
#include "tools/gallery/Gallery.h"
#include "ui/Translator.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QHashFunctions>
#include <QImage>
#include <QQmlContext>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

std::optional<QSize> parseSize(const QString& text)
{
    const QStringList sides = text.split(u'x');
    const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
    return sides.size() == 2 && !size.isEmpty() ? std::optional(size) : std::nullopt;
}

// Qt reads the factor when the application object is made, before which there is no parser.
void setScale(int argc, char** argv)
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (qstrcmp(argv[i], "--scale") == 0) {
            qputenv("QT_SCALE_FACTOR", argv[i + 1]);
        }
    }
}

struct Options
{
    pevrix::Gallery::Options gallery;
    QString language;
};

Options parseOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Writes a picture of every view of the interface and of the "
                                     u"camera's cards. Needs a graphics API, for example "
                                     "OpenGL on a virtual X display."_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"out"_s, u"Folder of the pictures."_s, u"folder"_s, u"gallery"_s},
        {u"theme"_s, u"dark or light."_s, u"theme"_s, u"dark"_s},
        {u"lang"_s, u"Language of the interface."_s, u"code"_s, u"en"_s},
        {u"size"_s, u"Size of the window."_s, u"WxH"_s, u"540x640"_s},
        {u"views"_s, u"Only these views, separated by commas."_s, u"names"_s},
        {u"suffix"_s, u"Goes into the files' names, after the view's."_s, u"text"_s},
        {u"scale"_s, u"Pixels for each pixel of the window's size."_s, u"factor"_s, u"1"_s},
    });
    parser.process(application);
    const QString theme = parser.value(u"theme"_s);
    const auto size = parseSize(parser.value(u"size"_s));
    if (!size || (theme != "dark"_L1 && theme != "light"_L1)) {
        std::fputs("pevrix_gallery: that is no size or no theme; see --help.\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    return {.gallery = {.folder = parser.value(u"out"_s),
                        .dark = theme == "dark"_L1,
                        .size = *size,
                        .views = parser.value(u"views"_s).split(u',', Qt::SkipEmptyParts),
                        .suffix = parser.value(u"suffix"_s)},
            .language = parser.value(u"lang"_s)};
}

// What other programs see of the camera while no video flows. The names of files that cannot be
// written.
QStringList writeCards(const QString& folder)
{
    constexpr QSize kSize(1280, 720);
    const std::pair<QString, std::vector<std::uint8_t>> cards[] = {
        {u"card-idle.png"_s, pevrix::drawIdleCard(kSize, u"192.168.1.42:8788"_s)},
        {u"card-paused.png"_s, pevrix::drawPausedCard(kSize)},
    };
    QStringList failed;
    for (const auto& [name, pixels] : cards) {
        const QImage image(pixels.data(), kSize.width(), kSize.height(),
                           qsizetype{kSize.width()} * 3, QImage::Format_BGR888);
        const QString file = QDir(folder).filePath(name);
        if (!image.save(file)) {
            failed.append(file);
        }
    }
    return failed;
}

} // namespace

int main(int argc, char** argv)
{
    // The order of hashes decides where glyphs lie in their texture, and that how they are rounded.
    QHashSeed::setDeterministicGlobalSeed();
    setScale(argc, argv);
    const QTemporaryDir settings; // the user's own are left alone
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QQuickWindow::setDefaultAlphaBuffer(true);
    QGuiApplication application(argc, argv);
    // What the program has on Windows, or what stands in for it.
    QFont font;
    font.setFamilies({u"Segoe UI"_s, u"Open Sans"_s});
    QGuiApplication::setFont(font);
    pevrix::registerInterface();

    const Options options = parseOptions(application);
    pevrix::Gallery gallery(options.gallery);
    pevrix::Translator translator(&application, gallery.engine());
    translator.setLanguage(options.language);
    gallery.engine()->rootContext()->setContextProperty(u"i18n"_s, &translator);
    if (!gallery.load()) {
        return EXIT_FAILURE;
    }
    QStringList failed = gallery.takePictures(); // makes the folder
    failed += writeCards(options.gallery.folder);
    for (const QString& file : failed) {
        std::fprintf(stderr, "pevrix_gallery: cannot write %s\n", qPrintable(file));
    }
    return failed.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
