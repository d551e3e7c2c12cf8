#include "Editor/EditorToolchain/ProjectRegistry.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixCore/Support/JsonParser.h"
#include "TavixCore/Support/JsonWriter.h"

#include <set>
#include <string>
#include <system_error>

namespace tavix::ProjectRegistry {
namespace {

namespace fs = std::filesystem;

fs::path fileIn(const fs::path& home) { return home / ".tavix/projects.json"; }

}   // namespace

std::vector<fs::path> read(const fs::path& home) try {
    const Json json = parseJson(readBytes(fileIn(home), JsonLimits{}.maxBytes));
    std::vector<fs::path> projects;
    if (!json.array()) return {};
    for (const Json& each : *json.array()) {
        const auto path = each.stringValue();
        if (!path) return {};
        projects.emplace_back(*path);
    }
    return projects;
} catch (const Failure&) {
    return {};
}

void write(const fs::path& home, const std::vector<fs::path>& projects) {
    std::set<std::string> paths;
    for (const fs::path& project : projects) paths.insert(project.string());
    JsonArray all;
    for (const std::string& path : paths) all.emplace_back(path);
    try {
        std::error_code ignored;
        fs::create_directories(fileIn(home).parent_path(), ignored);
        writeBytesAtomically(writeJson(Json(std::move(all))), fileIn(home));
    } catch (const Failure&) {
        return;
    }
}

}   // namespace tavix::ProjectRegistry
