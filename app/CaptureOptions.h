#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace pevrix {

// What the command line asks of the capture mode.
struct CaptureOptions
{
    QSize size{540, 640};                  // --shot [WIDTHxHEIGHT], of the window's client area
    QString output;                        // --out FILE; empty: a dated file among the pictures
    QString view;                          // --shot-view, the dialog to open; empty: none
    QString phone;                         // --shot-active NAME; empty: none to wait for
    std::chrono::milliseconds delay{4000}; // --shot-delay, when the picture is taken at the latest
    std::optional<int> theme;              // --shot-theme, 0 system, 1 light, 2 dark

    friend bool operator==(const CaptureOptions&, const CaptureOptions&) = default;
};

// Reads the program's arguments; nothing unless "--shot" is among them. Never fails: what cannot
// be used counts as not given, and other arguments are left to others.
[[nodiscard]] std::optional<CaptureOptions> parseCaptureOptions(const QStringList& arguments);

// Whether the arguments ask for usageText() only.
[[nodiscard]] bool isHelpRequested(int argc, const char* const* argv);

// Whether the window is to stay in the notification area until it is asked for, as after a start
// with the system. Not for a picture.
[[nodiscard]] bool isTrayStart(const QStringList& arguments);

// What the program's options are, for a person.
[[nodiscard]] const char* usageText();

} // namespace pevrix
