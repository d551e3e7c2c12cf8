#include "TavixRender/Export/MachineShare.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <sched.h>
#include <unistd.h>

namespace tavix::MachineShare {

namespace {

std::size_t machineBytes() {
    const long pages = ::sysconf(_SC_PHYS_PAGES), pageBytes = ::sysconf(_SC_PAGE_SIZE);
    return pages > 0 && pageBytes > 0 ? std::size_t(pages) * std::size_t(pageBytes) : std::size_t{1} << 30;
}

// The limit of a control group, version 2 and 1; a word or a huge number where there is none.
std::size_t containerBytes() {
    for (const char* path : {"/sys/fs/cgroup/memory.max", "/sys/fs/cgroup/memory/memory.limit_in_bytes"}) {
        std::size_t bytes = 0;
        if (std::ifstream(path) >> bytes && bytes > 0) return bytes;
    }
    return std::numeric_limits<std::size_t>::max();
}

}   // namespace

int cores() {
    cpu_set_t set;
    CPU_ZERO(&set);
    if (::sched_getaffinity(0, sizeof set, &set) != 0) return 1;
    return std::max(CPU_COUNT(&set), 1);
}

std::size_t memoryBytes(std::size_t asked) {
    return asked > 0 ? asked : std::min(machineBytes(), containerBytes()) / 4;
}

namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

std::size_t shareOf(std::size_t asked, int workers) {
    return memoryBytes(asked) / std::size_t(std::max(workers, 1));
}

}   // namespace

RenderRoom roomOf(std::size_t asked, int workers) {
    const RenderRoom most;
    const std::size_t share = shareOf(asked, workers);
    return {std::clamp(share / 3, 64 * megabyte, most.decoderBytes), std::min(share / 16, most.pictureBytes)};
}

imaging::EvaluatorOptions evaluation(imaging::EvaluatorOptions options, std::size_t asked, int workers) {
    options.cacheBytes =
        std::min(options.cacheBytes, std::clamp(shareOf(asked, workers) / 8, 8 * megabyte, 64 * megabyte));
    return options;
}

}   // namespace tavix::MachineShare
