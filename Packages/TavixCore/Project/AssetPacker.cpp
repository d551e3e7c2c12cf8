#include "TavixCore/Project/AssetPacker.h"
#include "TavixCore/Support/FileBytes.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Time/CompositionMarks.h"

#include <system_error>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

fs::path standardized(const fs::path& path) { return fs::absolute(path).lexically_normal(); }

std::string relativeTo(const std::string& name) {
    return std::string(CompositionProjectBundle::assetsDirName) + "/" + name;
}

}   // namespace

AssetPacker::AssetPacker(
    const std::optional<Path>& assetRoot, Path staging, FileOperations& files, Names kept)
    : root_(standardized(assetRoot.value_or(fs::current_path()))), staging_(std::move(staging)),
      files_(files), kept_(std::move(kept)) {
    for (const auto& [file, name] : kept_) names_.insert(name);
}

AssetPacker::Path AssetPacker::resolved(const std::string& path) const {
    return standardized(root_ / path);   // an absolute one stands alone
}

bool AssetPacker::hasFile(const std::string& path) const { return isFile(resolved(path)); }

std::string AssetPacker::rebased(const std::string& path) {
    if (path.empty()) return path;
    const Path source = resolved(path);
    if (const auto earlier = rebased_.find(source); earlier != rebased_.end()) return earlier->second;
    if (!isFile(source))
        throw Failure("Missing asset \"" + path + "\" (resolved to " + source.string() + ").");
    const std::string name = freeName(source);
    stage(source, name);
    return rebased_[source] = relativeTo(name);
}

std::string AssetPacker::rebasedClip(const std::string& path) {
    const std::string copied = rebased(path);
    if (copied.empty()) return copied;
    const Path sidecar = CompositionMarks::sidecarFile(resolved(path));
    const std::string name = CompositionMarks::sidecarFile(Path(copied).filename()).string();
    if (isFile(sidecar) && !names_.contains(name)) stage(sidecar, name);
    return copied;
}

std::string AssetPacker::rebasedFolder(const std::string& path) {
    if (path.empty()) return path;
    Path source = resolved(path);
    if (!source.has_filename()) source = source.parent_path();   // of a name that ends in a slash
    if (const auto earlier = rebased_.find(source); earlier != rebased_.end()) return earlier->second;
    std::error_code error;
    if (!fs::is_directory(source, error))
        throw Failure("Missing asset \"" + path + "\" (resolved to " + source.string() + ").");
    const std::string name = freeName(source);
    files_.makeFolder(staging_ / name);
    for (fs::directory_iterator entry(source, error), end; !error && entry != end; entry.increment(error))
        if (isFile(entry->path())) stage(entry->path(), name + "/" + entry->path().filename().string());
    if (error)
        throw Failure("The folder \"" + source.string() + "\" cannot be read: " + error.message() + ".");
    files_.sync(staging_ / name);
    names_.insert(name);
    return rebased_[source] = relativeTo(name);
}

std::string AssetPacker::freeName(const Path& source) const {
    if (const auto kept = kept_.find(source); kept != kept_.end()) return kept->second;
    std::string name = source.filename().string();
    for (int n = 2; names_.contains(name); ++n)
        name = source.stem().string() + "-" + std::to_string(n) + source.extension().string();
    return name;
}

void AssetPacker::stage(const Path& source, const std::string& name) {
    const Path copy = staging_ / name;
    files_.copy(fs::canonical(source), copy);
    files_.sync(copy);
    names_.insert(name);
}

}   // namespace tavix
