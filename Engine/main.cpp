#include "Engine/CommandLine.h"
#include "Engine/System/ProcessSetup.h"

#include <string>
#include <vector>

int main(int argc, char** argv) {
    tavix::engine::setUpProcess();
    const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    return tavix::engine::endingWith(tavix::engine::runCommand(words));
}
