#pragma once

class QWindow;

namespace pevrix {

// Gives the frameless window what the system's own frame would bring along: minimising and
// restoring by its taskbar button, and the system menu. Does nothing where the window system
// grants both to every window.
void addNativeWindowStyles(QWindow& window);

} // namespace pevrix
