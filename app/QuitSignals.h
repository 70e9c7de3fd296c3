#pragma once

class QCoreApplication;

namespace pevrix {

// Lets a request of the system to end the process (Ctrl+C in a terminal, `kill`) leave the event
// loop, so that the camera and a recording are closed as by "Quit".
// Call once, after the application object is made and before the event loop runs.
void quitOnSystemSignals(QCoreApplication& application);

} // namespace pevrix
