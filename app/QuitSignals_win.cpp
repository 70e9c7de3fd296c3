#include "app/QuitSignals.h"

namespace pevrix {

// A program with a window has no console that could interrupt it, and at the end of a Windows
// session Qt emits aboutToQuit() by itself.
void quitOnSystemSignals(QCoreApplication&) {}

} // namespace pevrix
