#include "app/NativeWindow.h"

namespace pevrix {

void addNativeWindowStyles(QWindow&) {}

} // namespace pevrix
