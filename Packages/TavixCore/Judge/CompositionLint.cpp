#include "TavixCore/Judge/CompositionLint.h"

#include "TavixCore/Judge/LintRules.h"

#include <cstddef>
#include <utility>
#include <variant>

namespace tavix::CompositionLint {
namespace {

// A background has no rules.
void checkContent(const LayerScope&, const BackgroundFill&, LintReport&) {}

void checkLayers(const SceneScope& scope, LintReport& report) {
    const KeyPath layersAt(scope.at, "layers");
    for (std::size_t l = 0; l < scope.scene().layers.size(); ++l) {
        const KeyPath at(layersAt, l);
        const LayerScope layer{scope, scope.scene().layers[l], at};
        checkWindow(layer, report);
        checkTracks(layer, report);
        checkEffects(layer, report);
        std::visit([&](const auto& content) { checkContent(layer, content, report); }, layer.layer.content);
    }
}

void checkScene(const SceneScope& scope, LintReport& report) {
    checkSceneLength(scope, report);
    checkTransition(scope, report);
    checkMarks(scope, report);
    checkBeats(scope, report);
    checkLayers(scope, report);
    checkSceneTotals(scope, report);
}

}   // namespace

std::vector<Finding> lint(const CompositionSpec& spec) {
    LintReport report;
    const KeyPath root, scenesAt(root, "scenes");
    checkOutput(spec, report);
    if (spec.scenes.empty()) {
        report.tell(Rule::noScenes, scenesAt, "A composition needs at least one scene.");
        return std::move(report).findings();
    }
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) {
        const KeyPath at(scenesAt, i);
        checkScene({spec, i, at}, report);
    }
    const CompositionTimeline timeline(spec);
    checkAccents(spec, report);
    checkTotalLength(timeline, report);
    checkCutsOnBeat(spec, timeline, report);
    checkAudio(spec, timeline, report);
    return std::move(report).findings();
}

}   // namespace tavix::CompositionLint
