#include "TavixCore/Project/AssetPacker.h"

#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Failure.h"
#include "TavixCore/Time/CompositionMarks.h"

#include <system_error>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

fs::path standardized(const fs::path& path) { return fs::absolute(path).lexically_normal(); }

bool isFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

bool isWithin(const fs::path& path, const fs::path& folder) {
    const fs::path relative = path.lexically_relative(folder);
    return !relative.empty() && *relative.begin() != "..";
}

std::string relativeTo(const std::string& name) {
    return std::string(CompositionProjectBundle::assetsDirName) + "/" + name;
}

}   // namespace

AssetPacker::AssetPacker(const std::optional<Path>& assetRoot, Path staging, FileOperations& files)
    : root_(standardized(assetRoot.value_or(fs::current_path()))), staging_(std::move(staging)),
      files_(files) {}

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

// A path names what lies under the asset root, or else under the file's own folder.
AssetPacker::Path AssetPacker::named(const Path& source) const {
    const Path folder = isWithin(source, root_) ? root_ : source.parent_path();
    Path file = fs::canonical(source);
    if (isWithin(file, fs::canonical(folder))) return file;
    throw Failure("\"" + source.string() + "\" is a symbolic link out of \"" + folder.string() + "\", to \"" +
                  file.string() + "\", and is not packed; refer to that file itself.");
}

std::string AssetPacker::freeName(const Path& source) const {
    std::string name = source.filename().string();
    for (int n = 2; names_.contains(name); ++n)
        name = source.stem().string() + "-" + std::to_string(n) + source.extension().string();
    return name;
}

void AssetPacker::stage(const Path& source, const std::string& name) {
    const Path copy = staging_ / name;
    files_.copy(named(source), copy);
    files_.sync(copy);
    names_.insert(name);
}

}   // namespace tavix
