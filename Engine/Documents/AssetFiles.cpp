#include "Engine/Documents/AssetFiles.h"

#include "Engine/System/Errors.h"

#include <system_error>

namespace tavix::engine {

namespace fs = std::filesystem;

namespace {

bool isBelow(const fs::path& path, const fs::path& folder) {
    const fs::path relative = path.lexically_relative(folder);
    return !relative.empty() && *relative.begin() != "..";
}

bool isSameFile(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return one == other || fs::equivalent(one, other, ignored);
}

}   // namespace

std::vector<AssetFile> assetFilesOf(const DocumentFile& document) {
    std::vector<AssetFile> files;
    CompositionSpec spec = document.spec;
    forEachAsset(spec, [&](AssetKind kind, std::string& path) {
        if (!path.empty())
            files.push_back({kind, path, fs::absolute(document.assetRoot / path).lexically_normal()});
    });
    return files;
}

void requireNoAsset(const fs::path& target, const DocumentFile& document) {
    std::vector<fs::path> files;
    for (const AssetFile& asset : assetFilesOf(document)) files.push_back(asset.path);
    requireNoneOf(target, files);
}

void requireNoneOf(const fs::path& target, std::span<const fs::path> files) {
    const fs::path absolute = fs::absolute(target).lexically_normal();
    for (const fs::path& file : files)
        if (isSameFile(absolute, file))
            throw UsageError(
                "\"" + target.string() +
                "\" is used by the document itself and would be lost; name another file with -o.");
}

bool isWithin(const fs::path& path, const fs::path& folder) {
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    if (error) return false;
    return isBelow(fs::absolute(path).lexically_normal(), fs::absolute(folder).lexically_normal()) &&
           isBelow(real, fs::weakly_canonical(folder, error));
}

}   // namespace tavix::engine
