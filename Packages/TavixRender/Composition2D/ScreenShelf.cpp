#include "TavixRender/Composition2D/ScreenShelf.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace tavix {

std::shared_ptr<ScreenPictures> ScreenShelf::screen(
    const ScreenSource& source, bool holdsLastFrame, const Place& place, const LayerBuild& build) {
    std::erase_if(kept_, [](const Kept& kept) { return kept.pictures.expired(); });
    std::vector<UsedFile> files = filesOf(source, build.assetRoot);
    const auto known = std::ranges::find_if(kept_, [&](const Kept& kept) {
        return kept.source == source && kept.holdsLastFrame == holdsLastFrame && kept.place == place &&
               kept.files == files;
    });
    if (known != kept_.end()) return known->pictures.lock();
    auto made = std::make_shared<ScreenPictures>(source, holdsLastFrame, build, place.shownPx);
    kept_.push_back({source, holdsLastFrame, place, std::move(files), made});
    return made;
}

std::shared_ptr<ScreenPictures> screenFor(const ScreenSource& source, const LayerBuild& build,
    bool holdsLastFrame, const std::optional<imaging::Size>& shownPx) {
    if (build.screens == nullptr || std::holds_alternative<StillScreen>(source))
        return std::make_shared<ScreenPictures>(source, holdsLastFrame, build, shownPx);
    return build.screens->screen(source, holdsLastFrame, {build.scene, build.window, shownPx}, build);
}

}   // namespace tavix
