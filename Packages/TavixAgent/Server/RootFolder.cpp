#include "TavixAgent/Server/RootFolder.h"

#include "TavixAgent/Document/DocumentErrors.h"

#include <algorithm>
#include <system_error>

namespace tavix {

namespace fs = std::filesystem;

RootFolder::RootFolder(const fs::path& folder) {
    std::error_code error;
    path_ = fs::canonical(folder, error);
    if (error || !fs::is_directory(path_, error))
        throw Failure("There is no folder \"" + folder.string() + "\"; name one that is there.");
}

bool RootFolder::holds(const fs::path& path) const {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path_ / path, error);
    if (error) return false;
    const auto [end, at] = std::mismatch(path_.begin(), path_.end(), real.begin(), real.end());
    return end == path_.end() && std::find(at, real.end(), fs::path("..")) == real.end();
}

fs::path RootFolder::resolved(std::string_view given) const {
    if (given.empty() || given.find('\0') != std::string_view::npos)
        throw UsageError("A path is missing; name a file in \"" + path_.string() + "\".");
    const fs::path path = path_ / fs::path(given);   // an absolute one stands alone
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    if (error || !holds(path))
        throw UsageError("\"" + std::string(given) + "\" lies outside \"" + path_.string() +
                         "\", which is all that is read and written here; name a file in that folder.");
    return real;
}

}   // namespace tavix
