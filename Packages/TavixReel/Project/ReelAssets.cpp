#include "TavixReel/Project/ReelAssets.h"

#include "TavixCore/Document/PixelScaling.h"
#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <string>

namespace tavix::ReelAssets {

void forEach(EffectsSpec& spec, const AssetVisit& visit) {
    forEachAsset(typeOf<EffectsSpec>(), &spec, visit);
}

EffectsSpec rooted(EffectsSpec spec, const std::filesystem::path& folder) {
    forEach(spec, [&](AssetKind, std::string& path) {
        const bool isRelative = !path.empty() && !path.starts_with('/') && !path.starts_with("~/");
        if (isRelative) path = (folder / path).string();
    });
    return spec;
}

EffectsSpec scaled(EffectsSpec spec, std::int64_t widthPx, std::int64_t heightPx) {
    const auto factor = [](std::int64_t to, std::int64_t from) {
        return double(to) / double(std::max<std::int64_t>(from, 1));
    };
    scalePixels(typeOf<EffectsSpec>(), &spec, factor(widthPx, spec.output.widthPx),
        factor(heightPx, spec.output.heightPx));
    spec.output.widthPx = widthPx;
    spec.output.heightPx = heightPx;
    return spec;
}

}   // namespace tavix::ReelAssets
