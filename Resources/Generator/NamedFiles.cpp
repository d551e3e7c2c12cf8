#include "Generator/NamedFiles.h"

#include <algorithm>
#include <cstdio>
#include <exception>

namespace tavix::generator {

int run(const NamedFiles& files, int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER [NAME...]\n", files.program.c_str());
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const std::vector<std::string> wanted =
        argc > 2 ? std::vector<std::string>(argv + 2, argv + argc) : files.names;
    for (const std::string& name : wanted)
        if (std::ranges::find(files.names, name) == files.names.end()) {
            std::fprintf(stderr, "There is no %s named \"%s\".\n", files.kind.c_str(), name.c_str());
            return 2;
        }
    try {
        std::filesystem::create_directories(folder);
        for (const std::string& name : wanted) files.make(name, folder);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", files.program.c_str(), failure.what());
        return 3;
    }
    return 0;
}

}   // namespace tavix::generator
