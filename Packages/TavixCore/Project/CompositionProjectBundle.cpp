#include "TavixCore/Project/CompositionProjectBundle.h"

#include "TavixCore/Project/BundlePath.h"
#include "TavixCore/Support/Document.h"

#include <system_error>

namespace tavix::CompositionProjectBundle {

std::filesystem::path specFile(const std::filesystem::path& bundle) { return bundle / specName; }

bool isBundle(const std::filesystem::path& bundle) {
    std::error_code ignored;
    return lastComponent(bundle).extension() == std::string(".").append(pathExtension) &&
           std::filesystem::exists(specFile(bundle), ignored);
}

CompositionSpec read(const std::filesystem::path& bundle) {
    return decodeFile<CompositionSpec>(specFile(bundle));
}

}   // namespace tavix::CompositionProjectBundle
