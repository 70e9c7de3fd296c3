#pragma once

#include <string>

namespace pevrix {

// The running executable's folder with its closing backslash; empty when its path has MAX_PATH or
// more characters, so that nothing is ever looked for in a folder whose name was cut off.
[[nodiscard]] std::wstring executableFolder();

} // namespace pevrix
