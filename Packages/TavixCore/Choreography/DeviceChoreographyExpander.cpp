#include "TavixCore/Choreography/DeviceChoreographyExpander.h"

#include "TavixCore/Choreography/FormationFit.h"
#include "TavixCore/Choreography/Formations.h"
#include "TavixCore/Document/CompositionSpec.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <variant>

namespace tavix::DeviceChoreographyExpander {
namespace {

const DeviceContent* namingFormation(const CompositionLayer& layer) {
    const auto* const device = std::get_if<DeviceContent>(&layer.content);
    return device && device->choreographyPreset ? device : nullptr;
}

void bake(CompositionScene& scene, const CompositionOutput& output) {
    std::vector<CompositionLayer> layers;
    double lengthSec = scene.durationSec;
    for (CompositionLayer& layer : scene.layers) {
        const DeviceContent* const device = namingFormation(layer);
        if (!device) {
            layers.push_back(std::move(layer));
            continue;
        }
        const DeviceChoreographyRef& ref = *device->choreographyPreset;
        DeviceChoreography formation = *expand(ref.preset, layer, output, ref.params);
        fitToFrame(ref.preset, formation.layers, output);
        lengthSec = std::max(lengthSec, layer.fromSec + formation.durationSec);
        for (CompositionLayer& made : formation.layers) {
            made.origin = {layer.origin.writtenAs, LayerOrigin::Baked::formation};
            // The last of many devices may leave after the formation has ended.
            lengthSec = std::max(lengthSec, made.fromSec + made.durationSec.value_or(0));
        }
        std::ranges::move(formation.layers, std::back_inserter(layers));
    }
    scene.layers = std::move(layers);
    if (!scene.durationBeats) scene.durationSec = lengthSec;
}

}   // namespace

std::optional<DeviceChoreography> expand(DeviceChoreographyPreset preset, const CompositionLayer& source,
    const CompositionOutput& output, const DeviceChoreographyParams& params) {
    const auto* const device = std::get_if<DeviceContent>(&source.content);
    if (!device) return std::nullopt;
    const DeviceChoreographyTraits& traits = traitsOf(preset);
    const Formation formation{.source = source,
        .device = *device,
        .output = output,
        .durationSec = params.durationSec.value_or(traits.naturalDurationSec),
        .referenceSec = traits.naturalDurationSec,
        .count = static_cast<int>(params.count.value_or(traits.naturalCount)),
        .intensity = params.intensity,
        .sideways = signOf(params.direction),
        .spread = params.spread,
        .staggerSec = params.staggerSec};
    const Formations::Arrangement& arrangement = Formations::arrangement(preset);
    DeviceChoreography made;
    for (int k = 0; k < formation.count + arrangement.extraLayers; ++k)
        made.layers.push_back(arrangement.layer(formation, k));
    made.durationSec = arrangement.durationSec ? arrangement.durationSec(formation) : formation.durationSec;
    return made;
}

void bake(CompositionSpec& spec) {
    for (CompositionScene& scene : spec.scenes) bake(scene, spec.output);
}

}   // namespace tavix::DeviceChoreographyExpander
