#pragma once

#include "app/CaptureMode.h"
#include "app/HiddenWindow.h"
#include "app/Tray.h"
#include "app/WindowPlace.h"
#include "controller/AppController.h"
#include "ui/Translator.h"
#include "ui/UpdateChecker.h"

#include <QObject>
#include <QQmlApplicationEngine>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class QQuickWindow;

namespace pevrix {

class SingleInstance;

// What a start of the program is asked for, and where it finds what lies outside; tests choose
// other places.
struct ShellOptions
{
    ControllerOptions controller;
    UpdateSite site;
    std::optional<CaptureOptions> picture; // take it and end
    bool inTray = false;                   // begin without the window
    std::function<bool()> isTrayAvailable = &QSystemTrayIcon::isSystemTrayAvailable;
    std::chrono::milliseconds trayInterval = HiddenWindow::kInterval;
};

// The program between its entry point and its event loop: the controller, the interface with its
// window, the tray, and what they tell each other. GUI thread.
class Shell final : public QObject
{
    Q_OBJECT

public:
    // `instance`, which tells of further starts, must outlive this object.
    Shell(const ShellOptions& options, SingleInstance& instance);

    // Loads the interface, whose types must be registered, and starts the controller. False when
    // it does not load; the log says so.
    [[nodiscard]] bool start();

    [[nodiscard]] AppController& controller() { return m_controller; }
    // Null until it has been loaded.
    [[nodiscard]] QQuickWindow* window() { return m_window; }
    // After start() only.
    [[nodiscard]] Tray& tray() { return *m_tray; }

private:
    [[nodiscard]] bool load();
    static void showFirstFrame();
    void connectTray();
    void connectWindow();
    void checkForUpdates();
    void showWindow();
    void tellOfFirstHide();

    const ShellOptions m_options;
    SingleInstance& m_instance;
    AppController m_controller;
    UpdateChecker m_updater;
    QQmlApplicationEngine m_engine;
    Translator m_translator;
    WindowPlace m_place;
    std::unique_ptr<Tray> m_tray;
    QQuickWindow* m_window = nullptr;
    std::unique_ptr<HiddenWindow> m_hidden;
    std::unique_ptr<CaptureMode> m_capture;
};

} // namespace pevrix
