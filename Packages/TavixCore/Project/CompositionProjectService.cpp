#include "TavixCore/Project/CompositionProjectService.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Project/BundleLock.h"
#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/BundleReplacement.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Project/FileOperations.h"

namespace tavix::CompositionProjectService {

namespace {

// A bundle that is being written by another program is not cut off. One that cannot be put right, as on a
// disk that is only read, opens as it is.
void repairIfCutOff(const std::filesystem::path& bundle) {
    if (!BundleReplacement::isUnfinished(bundle)) return;
    const BundleLock lock(bundle);
    DiskOperations disk;
    try {
        if (lock.isHeld()) BundleReplacement::repair(bundle, disk);
    } catch (const Failure&) {}
}

}   // namespace

LoadedCompositionProject load(const std::filesystem::path& bundle) {
    if (!CompositionProjectBundle::isBundle(bundle))
        throw Failure(
            "\"" + lastComponent(bundle).string() + "\" is not a .tavixcomp bundle with a composition.json.");
    repairIfCutOff(bundle);
    return {bundle, CompositionProjectBundle::read(bundle)};
}

void save(const CompositionSpec& spec, const std::filesystem::path& bundle) {
    CompositionProjectBundle::save(spec, bundle);
}

}   // namespace tavix::CompositionProjectService
