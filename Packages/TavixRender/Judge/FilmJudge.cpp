#include "TavixRender/Judge/FilmJudge.h"

#include "TavixCore/Judge/FormationMembers.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>
#include <cmath>

namespace tavix::FilmJudge {
namespace {

constexpr std::size_t quotedCharacters = 24;

std::string excerpt(const std::string& text) {
    std::string cut;
    std::size_t count = 0;
    for (const std::string_view character : KineticMath::characters(text)) {
        if (count++ == quotedCharacters) return cut + "…";
        cut += KineticMath::isLineBreak(character) ? " " : character;
    }
    return cut;
}

}   // namespace

int affordableLooks(const CompositionGeometry& geometry, std::size_t scene, int most) {
    constexpr double mostLayersLookedAt = 20'000;
    const double layers = double(std::max<std::size_t>(geometry.layers(scene).size(), 1));
    return static_cast<int>(std::clamp(mostLayersLookedAt / layers, 1.0, double(most)));
}

std::string pathOf(std::size_t scene, std::size_t layer) {
    return "scenes[" + std::to_string(scene) + "].layers[" + std::to_string(layer) + "]";
}

std::string nameOf(const CompositionLayer& layer) {
    const auto quoted = [](const std::string& words) { return std::string("\"").append(words).append("\""); };
    if (const auto* text = std::get_if<TextContent>(&layer.content)) return quoted(excerpt(text->text));
    if (layer.id && !layer.id->empty()) return quoted(*layer.id);
    return std::string("this ").append(kindName(layer.content)).append(" layer");
}

double leastContrastOf(const TextContent& text) {
    const bool isBold = text.fontWeight >= FontWeight::bold;
    return text.sizeFraction >= (isBold ? largeBoldFraction : largeTextFraction) ? 3 : 4.5;
}

std::vector<Finding> seen(const CompositionGeometry& geometry) {
    std::vector<Finding> findings;
    for (std::size_t scene = 0; scene < geometry.spec().scenes.size(); ++scene) {
        if (geometry.layers(scene).size() != geometry.spec().scenes[scene].layers.size())
            continue;   // unmeasured
        layersAreSeen(geometry, scene, findings);
        textsFit(geometry, scene, findings);
        textsStandOut(geometry, scene, findings);
        formationsFit(geometry, scene, findings);
        opensWithSomething(geometry, scene, findings);
    }
    return findings;
}

}   // namespace tavix::FilmJudge
