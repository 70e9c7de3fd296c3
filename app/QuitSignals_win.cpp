#include "app/QuitSignals.h"

namespace pevrix {

// A windowed program has no console to be interrupted from, and at the end of a Windows session Qt
// says that it is about to quit.
void quitOnSystemSignals(QCoreApplication&) {}

} // namespace pevrix
