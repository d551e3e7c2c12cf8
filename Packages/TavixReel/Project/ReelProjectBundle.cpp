#include "TavixReel/Project/ReelProjectBundle.h"

#include "TavixCore/Project/BundlePath.h"

#include <string>
#include <system_error>

namespace tavix::ReelProjectBundle {

namespace fs = std::filesystem;

bool isBundle(const fs::path& path) {
    std::error_code ignored;
    return lastComponent(path).extension() == std::string(".").append(pathExtension) &&
           fs::is_regular_file(path / rawVideoName, ignored);
}

Parts parts(const fs::path& bundleOrVideo) {
    if (isBundle(bundleOrVideo))
        return {bundleOrVideo / rawVideoName, bundleOrVideo / timelineName, bundleOrVideo / effectsName,
            bundleOrVideo / flowName};
    const auto beside = [&](std::string_view name) {
        fs::path file = bundleOrVideo;
        return file.replace_extension(name);
    };
    return {bundleOrVideo, beside(timelineName), beside(effectsName), beside(flowName)};
}

}   // namespace tavix::ReelProjectBundle
