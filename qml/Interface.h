#pragma once

namespace pevrix {

// Puts the QML module Pevrix, the interface, into the program that calls this. Call it before the
// first engine is made.
void registerInterface();

} // namespace pevrix
