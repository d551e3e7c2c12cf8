// The command line of a program that makes files of the product, each known by a name.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tavix::generator {

struct NamedFiles {
    std::string program;              // as in "tavix_sounds"
    std::string kind;                 // what one of them is called in a sentence, as in "sound"
    std::vector<std::string> names;   // all that can be made
    std::function<void(const std::string& name, const std::filesystem::path& folder)> make;
};

// PROGRAM FOLDER [NAME...]: makes the named ones, or all, in a folder that is made when it is missing.
// Returns the exit status: 0, 2 for wrong use, 3 when making threw, with a sentence on standard error.
int run(const NamedFiles& files, int argc, char** argv);

}   // namespace tavix::generator
