#include "system/ExecutableFolder_win.h"

#include <array>
#include <string_view>
#include <windows.h>

namespace pevrix {

std::wstring executableFolder()
{
    std::array<wchar_t, MAX_PATH> buffer{};
    const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return {};
    }
    const std::wstring_view path(buffer.data(), length);
    return std::wstring(path.substr(0, path.rfind(L'\\') + 1));
}

} // namespace pevrix
