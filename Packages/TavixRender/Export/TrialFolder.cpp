#include "TavixRender/Export/TrialFolder.h"

#include "TavixBase/Failure.h"

#include <cstdlib>
#include <string>
#include <system_error>

namespace tavix {

namespace fs = std::filesystem;

TrialFolder::TrialFolder() {
    std::string pattern = (fs::temp_directory_path() / "tavix-trial-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw Failure("There is no folder for a trial export in \"" + fs::temp_directory_path().string() +
                      "\"; make one that can be written.");
    path_ = pattern;
}

TrialFolder::~TrialFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

}   // namespace tavix
