#pragma once

#include "app/CaptureOptions.h"

#include <QObject>

class QImage;
class QQuickWindow;

namespace pevrix {

class AppController;

// Takes one picture of the program's own window and quits. The picture is taken soon after the
// first video frame, or after the options' delay when none comes; the log tells whether it was
// written. Create this before the controller starts, so that pairing shows demonstration values
// only. GUI thread.
class CaptureMode final : public QObject
{
    Q_OBJECT

public:
    // Both must outlive this object. Without a window (null) the picture fails.
    CaptureMode(CaptureOptions options, AppController& controller, QQuickWindow* window);

private:
    void arrangeWindow();
    void lookForPhone();
    void onFrame(const QImage& frame);
    void grab();

    const CaptureOptions m_options;
    AppController& m_controller;
    QQuickWindow* m_window;
    bool m_phoneFound = false;
    bool m_armed; // the next frame leads to the picture
    bool m_taken = false;
};

} // namespace pevrix
