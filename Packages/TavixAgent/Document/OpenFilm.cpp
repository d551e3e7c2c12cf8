#include "TavixAgent/Document/OpenFilm.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixCore/Judge/CompositionRoad.h"

#include <algorithm>
#include <utility>

namespace tavix {
namespace {

DocumentFile resolved(DocumentFile document) {
    CompositionResolution resolution = CompositionRoad::resolve(std::move(document.spec), document.assetRoot);
    for (const Finding& finding : resolution.findings)
        if (finding.level == Finding::Level::error)
            throw DocumentError(document.shownPath, finding.path, finding.message, finding.code);
    document.spec = std::move(resolution.spec);
    requireRenderable(document);
    return document;
}

}   // namespace

OpenFilm::OpenFilm(DocumentFile document)
    : document_(resolved(std::move(document))), assets_(document_.assetRoot),
      geometry_(document_.spec, assets_) {}

std::string OpenFilm::pathOf(std::size_t scene) { return "/scenes/" + std::to_string(scene); }

std::string OpenFilm::pathOf(std::size_t scene, std::size_t layer) const {
    const LayerOrigin& origin = spec().scenes[scene].layers[layer].origin;
    return pathOf(scene) + "/layers/" + std::to_string(origin.writtenAs.value_or(layer));
}

}   // namespace tavix
