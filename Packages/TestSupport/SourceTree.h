// Where the tests find the files of the source tree.
#pragma once

#include <filesystem>

namespace tavix::testsupport {

// `place` below the root of the source tree, as in inSourceTree("Examples").
std::filesystem::path inSourceTree(const std::filesystem::path& place);

}   // namespace tavix::testsupport
