#include "TavixCore/Project/CompositionProjectBundle.h"

#include "TavixCore/Project/AssetPacker.h"
#include "TavixCore/Project/AssetReferences.h"
#include "TavixCore/Project/BundleLock.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/BundleReplacement.h"
#include "TavixCore/Project/FileOperations.h"
#include "TavixCore/Support/Document.h"

#include <system_error>

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
                          bundle.string() + "\" would overwrite it; pack into another bundle.");
    }
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
    const std::string document = encodedJson(spec);
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
    files.remove(staging);
    files.makeFolder(staging);
    AssetPacker packer(assetRoot, staging, files);
    CompositionSpec packed = spec;
    packReferences(packed, packer);
    requireKept(packer, assetRoot, bundle);
    packed.assetRoot.reset();
    files.sync(staging);
    BundleReplacement::replaceAll(encodedJson(packed), bundle, files);
    return bundle;
}

}   // namespace tavix::CompositionProjectBundle
