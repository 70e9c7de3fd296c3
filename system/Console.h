#pragma once

namespace pevrix {

// Prints the text to standard output. On Windows a program without a console of its own, such as
// one with a window, borrows the console that it was started from.
void printToConsole(const char* text);

} // namespace pevrix
