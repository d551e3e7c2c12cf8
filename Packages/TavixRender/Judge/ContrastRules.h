// How well texts stand out from what lies under them, for rules that know the ground by its paints or by its
// pixels.
#pragma once

#include "TavixRender/Judge/FilmJudge.h"

#include <functional>

namespace tavix::FilmJudge {

// A text that has come in and not yet begun to go.
struct TextAtRest {
    std::size_t scene = 0, layer = 0;
    double localSec = 0;
    LayerGeometry drawn;
};
std::vector<TextAtRest> textsAtRest(const CompositionGeometry& geometry, std::size_t scene);

// The colour under a point of the canvas; nothing where it is not known.
using GroundAt = std::function<std::optional<RGBAColor>(imaging::Point)>;
// Of plain paints. The frame is that of the text at rest, and outlives the result.
GroundAt paintedGround(
    const CompositionGeometry& geometry, const FrameGeometry& frame, std::size_t textLayer);

// The contrast that three quarters of the text have at the least, of that colour of it which has the lowest.
struct TextContrast {
    double ratio = 21;
    bool isOfEmphasis = false;   // of words that look other than the rest
    double ofStretch = 21;       // of the stretch of a line, two ninths of it, that is hardest to read
};
// Below this nobody reads a stretch, however well the rest stands out.
inline constexpr double unreadableRatio = 1.5;
// Nothing where the ground is not known.
std::optional<TextContrast> contrastOf(
    const CompositionGeometry& geometry, const TextAtRest& text, const GroundAt& ground);
// Nothing for a text that stands out enough.
std::optional<Finding> lowContrast(
    const CompositionGeometry& geometry, const TextAtRest& text, const std::optional<TextContrast>& contrast);

}   // namespace tavix::FilmJudge
