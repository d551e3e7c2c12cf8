#include "Engine/CommandLine.h"

#include <csignal>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    // A reader that goes away is an error of writing, told like any other.
    std::signal(SIGPIPE, SIG_IGN);
    const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    return tavix::engine::runCommand(words);
}
