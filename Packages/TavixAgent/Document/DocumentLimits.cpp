#include "TavixAgent/Document/DocumentLimits.h"

#include "TavixAgent/Document/DocumentErrors.h"

#include <algorithm>
#include <string>
#include <variant>

namespace tavix {

namespace {

constexpr std::ptrdiff_t mostEffects = 32;
// Each looks at what lies under it three times, so the work of a chain grows with the third power.
constexpr std::ptrdiff_t mostAberrations = 4;
constexpr std::ptrdiff_t mostTextCharacters = 20'000;

struct Place {
    const DocumentFile& document;
    std::string path;   // of the layer

    void require(std::ptrdiff_t count, std::ptrdiff_t most, const char* key, const std::string& what) const {
        if (count > most)
            throw DocumentError(document.shownPath, path + key,
                std::to_string(count) + " " + what + " are too many for one layer; use at most " +
                    std::to_string(most) + ", or several layers.",
                "too-many");
    }
};

std::ptrdiff_t charactersOf(const std::string& text) {
    return std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; });
}

void requireBounded(const CompositionLayer& layer, const Place& place) {
    place.require(std::ssize(layer.effects), mostEffects, ".effects", "effects");
    const auto aberrations = std::ranges::count_if(layer.effects,
        [](const LayerEffect& effect) { return std::holds_alternative<ChromaticAberrationEffect>(effect); });
    place.require(aberrations, mostAberrations, ".effects", "effects chromaticAberration");
    if (const auto* text = std::get_if<TextContent>(&layer.content))
        place.require(charactersOf(text->text), mostTextCharacters, ".text.text", "characters");
}

}   // namespace

void requireBounded(const DocumentFile& document) {
    for (std::size_t i = 0; i < document.spec.scenes.size(); ++i) {
        const CompositionScene& scene = document.spec.scenes[i];
        for (std::size_t j = 0; j < scene.layers.size(); ++j)
            requireBounded(scene.layers[j],
                {document, "scenes[" + std::to_string(i) + "].layers[" + std::to_string(j) + "]"});
    }
}

}   // namespace tavix
