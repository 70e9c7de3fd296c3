#include "tools/phonesim/ExitCode.h"
#include "tools/phonesim/NetworkRun.h"
#include "tools/phonesim/Options.h"
#include "tools/phonesim/StopSignal.h"
#include "tools/phonesim/UsbRun.h"

#include <QCoreApplication>

#include <cstdio>
#include <memory>

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
    std::unique_ptr<PhoneRun> run;
    if (parsed.options->usb) {
        run = std::make_unique<UsbRun>(*parsed.options, *parsed.options->usb);
    } else {
        run = std::make_unique<NetworkRun>(*parsed.options);
    }
    QObject::connect(&stopSignal, &StopSignal::stopWanted, run.get(), &PhoneRun::stop);
    QObject::connect(
        run.get(), &PhoneRun::done, &application,
        [](ExitCode code) { QCoreApplication::exit(static_cast<int>(code)); },
        Qt::QueuedConnection);
    run->start();
    return QCoreApplication::exec();
}
