// One argument of a verb, as help, completion and manual tell it.
#pragma once

#include <string>
#include <vector>

namespace tavix::engine {

struct ArgumentEntry {
    std::vector<std::string> names;   // as "-o", "--output"; the one of an argument in its place
    std::string placeholder;          // of its value; empty for a flag and for what stands in its place
    std::string meaning;
    std::vector<std::string> words;   // that it takes, where they are known
    bool isInPlace = false;           // known by its place and not by a name
    bool isRequired = false;

    bool takesValue() const { return !isInPlace && !placeholder.empty(); }
    // Whether its value is the name of something on the disk.
    bool isFile() const {
        if (!words.empty()) return false;
        return isInPlace || placeholder == "FILE" || placeholder == "FOLDER" || placeholder == "BUNDLE" ||
               placeholder == "PATH" || placeholder == "PATCH";
    }
};

}   // namespace tavix::engine
