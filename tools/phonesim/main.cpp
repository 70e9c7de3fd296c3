#include "tools/phonesim/ExitCode.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/PhoneRun.h"
#include "tools/phonesim/StopSignal.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace pevrix;

    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("phonesim"));

    const ParsedOptions parsed = parseOptions(QCoreApplication::arguments());
    if (!parsed.options) {
        std::fprintf(parsed.helpWanted ? stdout : stderr, "%s%s\n",
                     parsed.helpWanted ? "" : "phonesim: ", qPrintable(parsed.text));
        return static_cast<int>(parsed.helpWanted ? ExitCode::Done : ExitCode::BadUsage);
    }

    StopSignal stopSignal;
    PhoneRun run(*parsed.options);
    QObject::connect(&stopSignal, &StopSignal::stopWanted, &run, &PhoneRun::stop);
    QObject::connect(
        &run, &PhoneRun::done, &application,
        [](ExitCode code) { QCoreApplication::exit(static_cast<int>(code)); },
        Qt::QueuedConnection);
    run.start();
    return QCoreApplication::exec();
}
