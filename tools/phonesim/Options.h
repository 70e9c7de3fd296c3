#pragma once

#include <QSize>
#include <QString>

#include <chrono>
#include <optional>

class QCoreApplication;

namespace pevrix {

// What the command line says. Times count from the moment the PC accepted the phone; an absent one
// means never.
struct Options
{
    using Time = std::optional<std::chrono::milliseconds>;

    bool usbmux = false; // the PC comes to the phone
    quint16 usbmuxPort = 0;
    QString host;
    quint16 port = 0;
    QString tokenFile;
    QString name;
    QSize size;
    int fps = 0;
    Time stallAfter;
    Time stallFor; // absent: until the end
    Time resizeAfter;
    QSize resizeTo;
};

// Reads the command line. Ends the program for --help, and with exit code 1 and a reason for what
// it cannot take.
[[nodiscard]] Options readOptions(const QCoreApplication& application);

} // namespace pevrix
