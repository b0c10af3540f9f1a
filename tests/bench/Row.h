// A row of the table that scripts/bench prints. A row compares the time of our code with the time of another
// implementation, the peer. Our code and the peer alternate in the same program. A benchmark prints its rows with tabs
// between the fields.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace tests {

#ifdef _WIN32
/// Measures elapsed time, because Wine does much of its work in another process, the server.
using Clock = std::chrono::steady_clock;
#else
/// Measures the processor time of this thread only. Other programs do not change that time.
struct Clock {
    using time_point = std::chrono::steady_clock::time_point;
    static time_point now() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
    }
};
#endif

inline double MicrosecondsBetween(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, std::micro>(end - start).count();
}

/// Returns the microseconds that `action` takes.
template <typename Action>
double TimeOf(Action&& action) {
    const Clock::time_point start = Clock::now();
    action();
    return MicrosecondsBetween(start, Clock::now());
}

/// Calls `call` `calls` times and returns the mean time in microseconds.
template <typename Call>
double TimeOfCall(int calls, Call&& call) {
    return TimeOf([&] {
               for (int i = 0; i < calls; ++i) call();
           }) /
           calls;
}

inline double MedianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

[[noreturn]] inline void Fail(const char* what, long code = 0) {
    std::fprintf(stderr, "benchmark failed: %s (0x%08lX)\n", what, static_cast<unsigned long>(code));
    std::exit(1);
}

inline void Require(bool isTrue, const char* what) {
    if (!isTrue) Fail(what);
}

struct Row {
    std::string name;
    std::string peer;
    double goal = 0;  ///< the largest ratio that meets the goal; 0 if the row has no goal
    int rounds = 15;  ///< number of rounds in each turn
};

/// Returns how often each row is measured. The environment variable BENCH_TURNS changes this number.
inline int Turns() {
    constexpr int kTurns = 7;
    const char* const wanted = std::getenv("BENCH_TURNS");
    return wanted ? std::max(1, std::atoi(wanted)) : kTurns;
}

/// `ours` and `theirs` return the microseconds of one round. Prints the median, the smallest and the largest ratio of
/// all turns, and the median times.
template <typename Ours, typename Theirs>
void Measure(const Row& row, Ours&& ours, Theirs&& theirs) {
    std::vector<double> ratios;
    std::vector<double> ourTimes;
    std::vector<double> theirTimes;
    ours();
    theirs();
    for (int turn = 0; turn < Turns(); ++turn) {
        std::vector<double> our;
        std::vector<double> their;
        for (int i = 0; i < row.rounds; ++i) {
            our.push_back(ours());
            their.push_back(theirs());
        }
        ourTimes.push_back(MedianOf(our));
        theirTimes.push_back(MedianOf(their));
        ratios.push_back(ourTimes.back() / theirTimes.back());
    }
    const auto [least, most] = std::minmax_element(ratios.begin(), ratios.end());
    std::printf("row\t%s\t%s\t%g\t%.4g\t%.4g\t%.4g\t%.4g\t%.4g\n", row.name.c_str(), row.peer.c_str(), row.goal,
                MedianOf(ratios), *least, *most, MedianOf(ourTimes), MedianOf(theirTimes));
    std::fflush(stdout);
}

}  // namespace tests
