#include "TavixCore/Judge/WithoutEffect.h"

#include "TavixCore/Document/SceneTransition.h"
#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Findings/LintRule.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>

namespace tavix::CompositionLint {
namespace {

std::vector<std::string_view> parametersOf(TransitionStyle style) {
    switch (style) {
    case TransitionStyle::crossZoom: return {"scale"};
    case TransitionStyle::dreamyZoom: return {"rotation", "scale"};
    case TransitionStyle::ripple: return {"amplitude", "speed"};
    case TransitionStyle::flip:
    case TransitionStyle::wipe:
    case TransitionStyle::push:
    case TransitionStyle::crosswarp:
    case TransitionStyle::fade: break;
    }
    return {};
}

const Json* objectIn(const Json* owner, std::string_view key) {
    const Json* found = owner ? owner->find(key) : nullptr;
    return found && found->object() ? found : nullptr;
}

const JsonArray& itemsIn(const Json* owner, std::string_view key) {
    static const JsonArray none;
    const Json* found = owner ? owner->find(key) : nullptr;
    return found && found->array() ? *found->array() : none;
}

void lookAtTransition(const Json* transition, const KeyPath& at, LintReport& report) {
    const Json* params = objectIn(transition, "params");
    if (!params) return;
    const Json* written = transition->find("style");
    const TransitionStyle style = named<TransitionStyle>(written && written->text() ? *written->text() : "")
                                      .value_or(SceneTransition{}.style);
    const std::vector<std::string_view> used = parametersOf(style);
    static const std::vector<std::string_view> known{"amplitude", "rotation", "scale", "speed"};
    for (const JsonMember& member : *params->object())
        if (std::ranges::count(known, member.key) > 0 && std::ranges::count(used, member.key) == 0)
            report.tell(Rule::keyIgnored, KeyPath(KeyPath(at, "params"), member.key),
                worded("{} has no effect on a {}, which has {}.",
                    {member.key, nameOf(style), used.empty() ? "no parameters" : listed(used)}));
}

void lookAtWords(const Json* text, const KeyPath& at, LintReport& report) {
    const JsonArray& spans = itemsIn(text, "emphasis");
    if (spans.empty()) return;
    const Json* written = text->find("text");
    const std::size_t count = written && written->text() ? KineticMath::words(*written->text()).size() : 0;
    const KeyPath emphasisAt(at, "emphasis");
    for (std::size_t i = 0; i < spans.size(); ++i) {
        const KeyPath spanAt(emphasisAt, i), indicesAt(spanAt, "wordIndices");
        const JsonArray& indices = itemsIn(&spans[i], "wordIndices");
        for (std::size_t j = 0; j < indices.size(); ++j)
            if (const auto index = indices[j].integerValue();
                index && (*index < 0 || std::size_t(*index) >= count))
                report.tell(Rule::keyIgnored, KeyPath(indicesAt, j),
                    worded("There is no word {}: the text has {}, counted from 0.",
                        {double(*index),
                            count == 1 ? std::string("1 word") : std::to_string(count) + " words"}));
    }
}

}   // namespace

std::vector<Finding> withoutEffect(const Json& document) {
    LintReport report;
    const KeyPath root, scenesAt(root, "scenes");
    const JsonArray& scenes = itemsIn(&document, "scenes");
    for (std::size_t i = 0; i < scenes.size(); ++i) {
        const KeyPath sceneAt(scenesAt, i), layersAt(sceneAt, "layers");
        const JsonArray& layers = itemsIn(&scenes[i], "layers");
        for (std::size_t l = 0; l < layers.size(); ++l) {
            const KeyPath layerAt(layersAt, l);
            lookAtWords(objectIn(&layers[l], "text"), KeyPath(layerAt, "text"), report);
        }
        lookAtTransition(objectIn(&scenes[i], "transition"), KeyPath(sceneAt, "transition"), report);
    }
    return std::move(report).findings();
}

}   // namespace tavix::CompositionLint
