#include "system/Console.h"

#include <cstdio>

namespace pevrix {

void printToConsole(const char* text)
{
    std::fputs(text, stdout);
}

} // namespace pevrix
