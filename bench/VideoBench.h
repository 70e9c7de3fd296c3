#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <vector>

namespace pevrix::bench {

using Seconds = std::chrono::duration<double>;

// The processor time of this program: on a busy machine it says more than the clock on the wall.
inline Seconds cpuTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// The median over the rounds of one candidate's time divided by another's in the same round.
inline double medianRatio(const std::vector<double>& numerators,
                          const std::vector<double>& denominators)
{
    std::vector<double> ratios;
    for (std::size_t i = 0; i < numerators.size(); ++i) {
        ratios.push_back(numerators[i] / denominators[i]);
    }
    return median(ratios);
}

} // namespace pevrix::bench
