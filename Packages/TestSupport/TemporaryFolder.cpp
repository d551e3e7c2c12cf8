#include "TestSupport/TemporaryFolder.h"

#include <cstdlib>
#include <stdexcept>

namespace tavix::testsupport {

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavix-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("No temporary folder could be made.");
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}   // namespace tavix::testsupport
