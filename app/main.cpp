#include "app/LogFile.h"
#include "app/QuitSignals.h"
#include "app/Shell.h"
#include "app/SingleInstance.h"
#include "qml/Interface.h"
#include "system/Console.h"
#include "system/Pace.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QQuickWindow>

using namespace Qt::StringLiterals;
using namespace pevrix;

// The order matters: the log handler comes first to catch the engine's own warnings, and the alpha
// buffer must be asked for before any window exists.
int main(int argc, char** argv)
{
    if (isHelpRequested(argc, argv)) {
        printToConsole(usageText());
        return 0;
    }
    installLogHandler();
    keepPaceWhileHidden();
    QQuickWindow::setDefaultAlphaBuffer(true);
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Pevrix"_s);
    QApplication::setOrganizationName(u"Pevrix"_s);
    QApplication::setDesktopFileName(u"example.pevrix.Pevrix"_s); // the Linux menu entry's name
    QApplication::setWindowIcon(QIcon(u":/assets/icons/app-icon-256.png"_s));
    quitOnSystemSignals(application);

    ShellOptions options;
    options.site = {.siteUrl = QStringLiteral(PEVRIX_SITE_URL),
                    .endpoint = QUrl(QStringLiteral(PEVRIX_UPDATE_URL))};
    options.picture = parseCaptureOptions(QApplication::arguments());
    options.inTray = isTrayStart(QApplication::arguments());
    SingleInstance instance(QFileInfo(Settings::userFile()).path());
    if (!options.picture && !instance.claim(!options.inTray)) {
        return 0;
    }
    registerInterface();
    Shell shell(options, instance);
    return shell.start() ? QApplication::exec() : -1;
}
