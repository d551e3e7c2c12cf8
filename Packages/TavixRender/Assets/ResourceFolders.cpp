#include "TavixRender/Assets/ResourceFolders.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

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

std::vector<fs::path> files() {
    std::vector<fs::path> found;
    std::error_code unreadable;
    for (const fs::path& folder : folders())
        for (fs::recursive_directory_iterator entry(folder, unreadable), end; entry != end;
             entry.increment(unreadable)) {
            if (unreadable) break;
            if (entry->is_regular_file(unreadable)) found.push_back(entry->path());
        }
    std::ranges::sort(found);
    return found;
}

}   // namespace tavix::ResourceFolders
