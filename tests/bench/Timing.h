// Shared by benchmarks that print a ratio: rounds from the command line, alternation, and medians.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace tests {

using Clock = std::chrono::steady_clock;

/// `Unit` is std::milli, std::micro or std::nano.
template <typename Unit>
double TimeBetween(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, Unit>(end - start).count();
}

/// The duration of `action`, in `Unit`.
template <typename Unit, typename Action>
double TimeOf(Action&& action) {
    const Clock::time_point start = Clock::now();
    action();
    return TimeBetween<Unit>(start, Clock::now());
}

/// The program's argument, at least 1; `otherwise` if there is none.
inline int CountFrom(int argc, char** argv, int otherwise) {
    return argc > 1 ? std::max(1, std::atoi(argv[1])) : otherwise;
}

inline double MedianOf(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

struct Medians {
    double ours;
    double theirs;
    double Ratio() const { return ours / theirs; }
};

/// The medians of the results of two functions. They alternate for `rounds`, after `warmUp` rounds that do not count.
template <typename Ours, typename Theirs>
Medians InTurns(int warmUp, int rounds, Ours&& ours, Theirs&& theirs) {
    std::vector<double> our;
    std::vector<double> their;
    for (int i = -warmUp; i < rounds; ++i) {
        const double ourTime = ours();
        const double theirTime = theirs();
        if (i < 0) continue;
        our.push_back(ourTime);
        their.push_back(theirTime);
    }
    return {MedianOf(our), MedianOf(their)};
}

}  // namespace tests
