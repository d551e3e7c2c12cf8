#include "TavixCore/Project/CompositionProjectBundle.h"

#include "TavixCore/Project/AssetPacker.h"
#include "TavixCore/Project/AssetReferences.h"
#include "TavixCore/Project/BundleLock.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/BundleReplacement.h"
#include "TavixCore/Project/FileOperations.h"
#include "TavixCore/Support/Document.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tavix::CompositionProjectBundle {

namespace {

namespace fs = std::filesystem;

bool endsInExtension(const fs::path& bundle) {
    return bundle.extension() == std::string(".").append(pathExtension);
}

fs::path bundleAt(const fs::path& to) {
    fs::path bundle = fs::absolute(to).lexically_normal();
    if (!bundle.has_filename()) bundle = bundle.parent_path();
    if (!endsInExtension(bundle)) bundle.concat(".").concat(pathExtension);
    return bundle;
}

void requireHeld(const BundleLock& lock, const fs::path& bundle) {
    if (!lock.isHeld())
        throw Failure(
            "\"" + bundle.string() + "\" is being written by another program; try again when it is done.");
}

bool isSameFolder(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored);
}

// The files among them that lie in the bundle already, as other documents may name them too, by the names
// that they have there. One in a folder of its own cannot be kept: packed assets lie flat.
AssetPacker::Names ownFiles(const AssetPacker::Names& packed, const fs::path& bundle) {
    AssetPacker::Names own;
    for (const auto& [source, name] : packed)
        if (source.parent_path() == assetsFolder(bundle)) own[source] = source.filename().string();
    return own;
}

// A bundle's own assets may be packed anew. Those that another document refers to would be gone for it,
// unless they keep their names.
void requireKept(
    const AssetPacker& packer, const std::optional<fs::path>& assetRoot, const fs::path& bundle) {
    if (isSameFolder(assetRoot.value_or(fs::current_path()), bundle)) return;
    const fs::path assets = assetsFolder(bundle);
    for (const auto& [source, packed] : packer.all()) {
        const fs::path relative = source.lexically_relative(assets);
        const bool isOutside = relative.empty() || *relative.begin() == "..";
        if (!isOutside && source != bundle / packed)
            throw Failure("\"" + source.string() + "\" is used by this document, and packing it into \"" +
                          bundle.string() + "\" would move it; pack into another bundle.");
    }
}

void empty(const fs::path& staging, FileOperations& files) {
    files.remove(staging);
    files.makeFolder(staging);
}

}   // namespace

fs::path specFile(const fs::path& bundle) { return bundle / specName; }

fs::path assetsFolder(const fs::path& bundle) { return bundle / assetsDirName; }

bool isBundle(const fs::path& bundle) {
    std::error_code ignored;
    return endsInExtension(lastComponent(bundle)) && fs::exists(specFile(bundle), ignored);
}

CompositionSpec read(const fs::path& bundle) { return decodeFile<CompositionSpec>(specFile(bundle)); }

void save(const CompositionSpec& spec, const fs::path& bundle) {
    DiskOperations disk;
    save(spec, bundle, disk);
}

void save(const CompositionSpec& spec, const fs::path& bundle, FileOperations& files) {
    saveText(encodedJson(spec), bundle, files);
}

void saveText(const std::string& document, const fs::path& bundle) {
    DiskOperations disk;
    saveText(document, bundle, disk);
}

void saveText(const std::string& document, const fs::path& bundle, FileOperations& files) {
    const BundleLock lock(bundle);
    requireHeld(lock, bundle);
    BundleReplacement::repair(bundle, files);
    BundleReplacement::replaceDocument(document, bundle, files);
}

fs::path write(const CompositionSpec& spec, const std::optional<fs::path>& assetRoot, const fs::path& to) {
    DiskOperations disk;
    return write(spec, assetRoot, to, disk);
}

fs::path write(const CompositionSpec& spec, const std::optional<fs::path>& assetRoot, const fs::path& to,
    FileOperations& files) {
    const fs::path bundle = bundleAt(to);
    files.makeFolder(bundle);
    const BundleLock lock(bundle);
    requireHeld(lock, bundle);
    BundleReplacement::repair(bundle, files);
    const fs::path staging = bundle / BundleReplacement::stagingDirName;
    empty(staging, files);
    std::optional<AssetPacker> packer(std::in_place, assetRoot, staging, files);
    CompositionSpec packed = spec;
    packReferences(packed, *packer);
    if (const AssetPacker::Names own = ownFiles(packer->all(), bundle); std::ranges::any_of(
            own, [&](const auto& file) { return bundle / packer->all().at(file.first) != file.first; })) {
        empty(staging, files);
        packer.emplace(assetRoot, staging, files, own);
        packed = spec;
        packReferences(packed, *packer);
    }
    requireKept(*packer, assetRoot, bundle);
    packed.assetRoot.reset();
    files.sync(staging);
    BundleReplacement::replaceAll(encodedJson(packed), bundle, files);
    return bundle;
}

}   // namespace tavix::CompositionProjectBundle
