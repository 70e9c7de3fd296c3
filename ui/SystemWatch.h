#pragma once

#include <QColor>

#include <functional>
#include <memory>

namespace pevrix {

struct SystemWishes
{
    bool lessMotion = false;
    bool moreContrast = false;
    // With moreContrast: what text and fills must look like. Invalid where the system names none.
    QColor window;
    QColor text;
    QColor highlight;
    QColor highlightedText;

    friend bool operator==(const SystemWishes&, const SystemWishes&) = default;
};

class ISystemWatch
{
public:
    virtual ~ISystemWatch() = default;
};

// Calls back with what the user's settings say now, perhaps before it returns, and after every
// change for as long as the watch lives. GUI thread; never waits for another process.
[[nodiscard]] std::unique_ptr<ISystemWatch>
watchSystem(std::function<void(const SystemWishes&)> callback);

} // namespace pevrix
