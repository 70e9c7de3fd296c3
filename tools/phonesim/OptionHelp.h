#pragma once

class QCommandLineParser;

namespace pevrix {

/// Gives the parser every option of the simulated phone with its default, and the help's texts.
void declareOptions(QCommandLineParser& parser);

} // namespace pevrix
