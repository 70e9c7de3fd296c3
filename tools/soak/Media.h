#pragma once

#include "tools/doubles/Program.h"

#include <QTemporaryDir>

#include <optional>

namespace pevrix {

// A media service, PipeWire with its session manager, for this process and its children alone.
// Make it before anything else, as it changes the environment.
class Media
{
public:
    Media();

    [[nodiscard]] bool start();
    // As in a crash: nobody says goodbye.
    void kill();

private:
    QTemporaryDir m_home;
    std::optional<Program> m_daemon;
    std::optional<Program> m_manager;
};

} // namespace pevrix
