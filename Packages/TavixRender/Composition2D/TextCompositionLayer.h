// A layer of kinetic text.
#pragma once

#include "TavixCore/Document/CompositionLayer.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/KineticText/KineticTextBlock.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

class TextCompositionLayer final : public CompositionLayerContentRenderer {
public:
    // What a text layer is laid out in.
    struct Setting {
        imaging::Rect bounds;       // of the canvas
        NormalizedPoint position;   // of the block's centre, from the top left of the canvas
        const std::map<std::string, std::string>& fonts;   // of the document
        std::optional<std::filesystem::path> assetRoot;
    };

    TextCompositionLayer(const TextContent& content, const Setting& setting, std::int64_t presetSeed,
        const KineticElementGroup::Window& window, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double localSec) override { return block_.render(localSec); }
    const KineticTextBlock& block() const { return block_; }

    // The text laid out at rest; nothing for an empty one.
    static std::optional<KineticTextLayout::Result> layout(const TextContent& content, const Setting& setting,
        const KineticStyle& style, const text::FontBook& book);
    // The animation as it stands, or what its preset comes to for this text.
    static KineticStyle styleOf(const TextContent& content, std::int64_t presetSeed);

    // Letter spacing in the text itself: a thin space behind each character, or a wide one, and wide ones for
    // spaces; lines still break where they did. `em` up to 0.05 changes nothing.
    static std::string tracked(std::string_view text, double em);
    // Emphasis of the words of a text as emphasis of the same letters once it is tracked, when each of them
    // counts as a word.
    static std::vector<EmphasisSpan> trackedEmphasis(
        const std::vector<EmphasisSpan>& spans, std::string_view text, double em);

private:
    KineticTextBlock block_;
};

}   // namespace tavix
