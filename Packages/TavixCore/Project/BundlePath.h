// The name of a folder, however its path is written.
#pragma once

#include <filesystem>

namespace tavix {

// "x.tavixcomp" of "a/x.tavixcomp" and of "a/x.tavixcomp/".
inline std::filesystem::path lastComponent(const std::filesystem::path& path) {
    const std::filesystem::path plain = path.lexically_normal();
    return plain.has_filename() ? plain.filename() : plain.parent_path().filename();
}

}   // namespace tavix
