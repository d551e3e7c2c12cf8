#include "TavixCore/Project/CompositionProjectService.h"

#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixCore/Support/Failure.h"

namespace tavix::CompositionProjectService {

LoadedCompositionProject load(const std::filesystem::path& bundle) {
    if (!CompositionProjectBundle::isBundle(bundle))
        throw Failure(
            "\"" + lastComponent(bundle).string() + "\" is not a .tavixcomp bundle with a composition.json.");
    return {bundle, CompositionProjectBundle::read(bundle)};
}

}   // namespace tavix::CompositionProjectService
