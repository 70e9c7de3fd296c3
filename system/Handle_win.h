#pragma once

#include <memory>
#include <windows.h>

namespace pevrix {

struct HandleClose
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, HandleClose>; // null where a call returned null

} // namespace pevrix
