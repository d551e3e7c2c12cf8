#include "TavixCore/Project/BundleReplacement.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Project/CompositionProjectBundle.h"

namespace tavix::BundleReplacement {

namespace {

namespace fs = std::filesystem;

using CompositionProjectBundle::assetsFolder;
using CompositionProjectBundle::specFile;

fs::path nextDocument(const fs::path& bundle) { return bundle / ".composition.json.next"; }
fs::path earlierAssets(const fs::path& bundle) { return bundle / ".assets-earlier"; }

// A link counts, wherever it points.
bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

void keepPermissions(const fs::path& file, const fs::path& of) {
    std::error_code ignored;
    const fs::file_status status = fs::status(of, ignored);
    if (fs::is_regular_file(status)) fs::permissions(file, status.permissions(), ignored);
}

void prepareDocument(std::string_view document, const fs::path& bundle, FileOperations& files) {
    const fs::path next = nextDocument(bundle);
    files.remove(next);
    files.write(document, next);
    keepPermissions(next, specFile(bundle));
    files.sync(next);
}

void exchangeAssets(const fs::path& bundle, FileOperations& files) {
    const fs::path assets = assetsFolder(bundle);
    if (isThere(assets)) files.rename(assets, earlierAssets(bundle));
    files.rename(bundle / stagingDirName, assets);
    files.sync(bundle);
}

// Once the document is renamed the work is done. What fails after that leaves at most a hidden folder that
// the next opening of the bundle removes.
void tidy(const fs::path& bundle, FileOperations& files) {
    try {
        files.sync(bundle);
        files.remove(earlierAssets(bundle));
    } catch (const Failure&) {}
}

// The failure that the user has to know is the first one; what cannot be taken back now is at the next
// opening.
void takeBack(const fs::path& bundle, FileOperations& files) {
    try {
        repair(bundle, files);
    } catch (const Failure&) {}
}

template <class Exchange>
void replace(
    std::string_view document, const fs::path& bundle, FileOperations& files, const Exchange& exchange) {
    try {
        prepareDocument(document, bundle, files);
        exchange();
        files.rename(nextDocument(bundle), specFile(bundle));
    } catch (const Failure&) {
        takeBack(bundle, files);
        throw;
    }
    tidy(bundle, files);
}

}   // namespace

void replaceDocument(std::string_view document, const fs::path& bundle, FileOperations& files) {
    replace(document, bundle, files, [] {});
}

void replaceAll(std::string_view document, const fs::path& bundle, FileOperations& files) {
    replace(document, bundle, files, [&] { exchangeAssets(bundle, files); });
}

bool isUnfinished(const fs::path& bundle) { return isThere(earlierAssets(bundle)); }

void repair(const fs::path& bundle, FileOperations& files) {
    const fs::path earlier = earlierAssets(bundle);
    if (isThere(earlier) && isThere(nextDocument(bundle))) {
        files.remove(assetsFolder(bundle));
        files.rename(earlier, assetsFolder(bundle));
    }
    files.remove(earlier);
    files.remove(nextDocument(bundle));
}

}   // namespace tavix::BundleReplacement
