// What a piece of work takes, its own processes included.
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>

#include <sys/resource.h>

namespace tavix::benchmarks {

struct Cost {
    double wallSec = std::numeric_limits<double>::infinity(), cpuSec = wallSec;
    void keepLeast(const Cost& other) {
        wallSec = std::min(wallSec, other.wallSec);
        cpuSec = std::min(cpuSec, other.cpuSec);
    }
};

// Of this process and of those that it waited for.
inline double cpuSec() {
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) * 1e-6; };
    double sum = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(who, &usage);
        sum += seconds(usage.ru_utime) + seconds(usage.ru_stime);
    }
    return sum;
}

inline Cost measured(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const double cpuStart = cpuSec();
    work();
    return {
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), cpuSec() - cpuStart};
}

}   // namespace tavix::benchmarks
