#include "app/NativeWindow.h"

#include <QWindow>

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

namespace pevrix {

void addNativeWindowStyles(QWindow& window)
{
    auto* const handle = reinterpret_cast<HWND>(window.winId());
    const LONG_PTR style = GetWindowLongPtrW(handle, GWL_STYLE);
    SetWindowLongPtrW(handle, GWL_STYLE, style | WS_MINIMIZEBOX | WS_SYSMENU);
    // A style takes effect with the next change of the frame.
    SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

} // namespace pevrix
