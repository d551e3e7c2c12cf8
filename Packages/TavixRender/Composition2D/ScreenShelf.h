// Clips and reels that are open. Layers that show the same at the same time share one, so that each of its
// frames is decoded once; and a layer that is edited goes on with the one of the build before.
#pragma once

#include "TavixCore/Document/LayerWindow.h"
#include "TavixRender/Composition2D/LayerInputs.h"
#include "TavixRender/Composition2D/ScreenPictures.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace tavix {

// Used by one thread at a time.
class ScreenShelf {
public:
    // Where a layer shows it: those that share it ask for the same times, one after another.
    struct Place {
        std::size_t scene;
        LayerWindow window;
        std::optional<imaging::Size> shownPx = {};   // the size within which a clip is drawn
        bool operator==(const Place&) const = default;
    };

    ScreenShelf() = default;
    ScreenShelf(const ScreenShelf&) = delete;
    ScreenShelf& operator=(const ScreenShelf&) = delete;

    // One that is there already, as long as somebody has it, or a new one.
    std::shared_ptr<ScreenPictures> screen(
        const ScreenSource& source, bool holdsLastFrame, const Place& place, const LayerBuild& build);

private:
    struct Kept {
        ScreenSource source;
        bool holdsLastFrame;
        Place place;
        std::vector<UsedFile> files;
        std::weak_ptr<ScreenPictures> pictures;
    };
    std::vector<Kept> kept_;
};

// For a layer of that build, from its shelf where there is one. Stills are kept elsewhere, as pictures.
std::shared_ptr<ScreenPictures> screenFor(const ScreenSource& source, const LayerBuild& build,
    bool holdsLastFrame = true, const std::optional<imaging::Size>& shownPx = {});

}   // namespace tavix
