// A full-screen card of a reel: a logo, a headline and a line below it, stacked a little above the middle.
#pragma once

#include "TavixReel/Document/TitleCard.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/KineticText/KineticTextBlock.h"

#include <optional>

namespace tavix {

// Immutable once made; any thread may ask.
class TitleCardRenderer {
public:
    // The card's own background, or else `wallpaper`. What cannot be read is told and left out.
    TitleCardRenderer(const TitleCard& card, const BackgroundFill& wallpaper, const LayerBuild& build);

    // At a time since the card began.
    imaging::Image frame(double localSec) const;

private:
    std::optional<imaging::Image> logoOf(const TitleCard& card, const LayerBuild& build) const;

    imaging::Rect bounds_;
    imaging::Image background_;
    std::optional<imaging::Image> placedLogo_;
    KineticTextBlock headline_, subline_;
};

}   // namespace tavix
