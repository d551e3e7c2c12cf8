#include "TestSupport/SourceTree.h"

namespace tavix::testsupport {

std::filesystem::path inSourceTree(const std::filesystem::path& place) {
    return std::filesystem::path(TAVIX_SOURCE_DIR) / place;
}

}   // namespace tavix::testsupport
