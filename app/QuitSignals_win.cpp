#include "app/QuitSignals.h"

namespace pevrix {

// A windowed program has no console to be interrupted from, and Qt turns the end of a Windows
// session into its own quit.
void quitOnSystemSignals(QCoreApplication&) {}

} // namespace pevrix
