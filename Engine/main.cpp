#include "Engine/CommandLine.h"

#include <csignal>
#include <string>
#include <vector>

#include <malloc.h>

int main(int argc, char** argv) {
    // Pictures go back to the system when they are done with, instead of leaving holes in the heap.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    mallopt(M_ARENA_MAX, 2);
    // A reader that goes away is an error of writing, told like any other.
    std::signal(SIGPIPE, SIG_IGN);
    const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    return tavix::engine::runCommand(words);
}
