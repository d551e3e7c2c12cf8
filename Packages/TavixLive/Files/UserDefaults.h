// What a program remembers of its user: a few values by name, in one file of JSON.
#pragma once

#include "TavixCore/Support/Json.h"

#include <filesystem>
#include <string_view>

namespace tavix {

// Used by one thread at a time. Every change reads the file anew and writes it whole, so that two programs
// that are open lose little of each other's.
class UserDefaults {
public:
    // In "defaults.json" of the folder, which is made when something is written first.
    explicit UserDefaults(const std::filesystem::path& folder) : file_(folder / "defaults.json") {}

    // Null when there is none, or the file cannot be read.
    Json value(std::string_view name) const;
    // Throws a `Failure` when the file cannot be written.
    void set(std::string_view name, Json value) const;

private:
    JsonObject all() const;

    std::filesystem::path file_;
};

}   // namespace tavix
