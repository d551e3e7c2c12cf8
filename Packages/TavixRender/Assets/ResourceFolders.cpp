#include "TavixRender/Assets/ResourceFolders.h"

#include <cstdlib>
#include <system_error>
#include <vector>

namespace tavix::ResourceFolders {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> folders() {
    std::vector<fs::path> all;
    if (const char* named = std::getenv("TAVIX_RESOURCES"); named != nullptr && *named != '\0')
        all.emplace_back(named);
    std::error_code unknown;
    const fs::path program = fs::read_symlink("/proc/self/exe", unknown);
    if (!unknown) all.push_back(program.parent_path().parent_path() / "share" / "tavix");
    all.emplace_back(TAVIX_INSTALLED_RESOURCES);
    return all;
}

}   // namespace

std::optional<fs::path> find(std::string_view relativePath) {
    for (const fs::path& folder : folders()) {
        std::error_code unreadable;
        fs::path candidate = folder / relativePath;
        if (fs::is_regular_file(candidate, unreadable)) return candidate;
    }
    return std::nullopt;
}

}   // namespace tavix::ResourceFolders
