#include "tests/support/Platform.h"

#include <filesystem>
#include <iterator>

namespace pevrix {

bool runsUnderWine()
{
    return false;
}

int openHandles()
{
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return static_cast<int>(std::distance(begin(descriptors), end(descriptors)));
}

} // namespace pevrix
