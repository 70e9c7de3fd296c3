#include "system/Console.h"

#include <cstdio>
#include <windows.h>

namespace pevrix {

// Not the console where the output goes elsewhere.
void printToConsole(const char* text)
{
    FILE* console = nullptr;
    if (GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) == FILE_TYPE_UNKNOWN &&
        AttachConsole(ATTACH_PARENT_PROCESS)) {
        freopen_s(&console, "CONOUT$", "w", stdout);
    }
    std::fputs(text, stdout);
}

} // namespace pevrix
