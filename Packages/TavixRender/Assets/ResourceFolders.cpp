#include "TavixRender/Assets/ResourceFolders.h"

#include <cstdlib>
#include <system_error>
#include <vector>

namespace tavix::ResourceFolders {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> folders() {
    if (const char* named = std::getenv("TAVIX_RESOURCES"); named != nullptr && *named != '\0')
        return {named};
    std::error_code unknown;
    const fs::path program = fs::read_symlink("/proc/self/exe", unknown);
    const fs::path besideProgram = program.parent_path().parent_path() / "share" / "tavix";
    return {besideProgram, TAVIX_INSTALLED_RESOURCES};
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
