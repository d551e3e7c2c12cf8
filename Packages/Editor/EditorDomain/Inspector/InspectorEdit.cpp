#include "Editor/EditorDomain/Inspector/InspectorEdit.h"

#include "Editor/EditorDomain/Timeline/TimelineDrag.h"
#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonPatch.h"
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/KeyPath.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixLive/Operations/AudioOperations.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"

#include <algorithm>
#include <set>
#include <vector>

namespace tavix::InspectorEdit {

namespace {

using Kind = PatchOperation::Kind;

PatchOperation operation(Kind kind, const JsonPointer& path, Json value) {
    PatchOperation made;
    made.kind = kind;
    made.path = path;
    made.value = std::move(value);
    return made;
}

template <class T> T changed(const T& whole, const JsonPointer& path, const Json& value) {
    const Json before = writeValue(typeOf<T>(), &whole);
    if (!value.isNull()) return applyTo(whole, {operation(Kind::add, path, value)});
    return find(before, path) ? applyTo(whole, {operation(Kind::remove, path, {})}) : whole;
}

CompositionLayer changedLayer(const CompositionLayer& layer, const JsonPointer& path, const Json& value) {
    CompositionLayer made = changed(layer, path, value);
    made.origin = layer.origin;   // it is still where it was read
    return made;
}

// The document without its scenes, which a change of the rest need not read again.
CompositionSpec changedSpec(const CompositionSpec& spec, const JsonPointer& path, const Json& value) {
    CompositionSpec rest = spec;
    rest.scenes.clear();
    rest = changed(rest, path, value);
    rest.scenes = spec.scenes;
    return rest;
}

std::vector<CompositionLayer*> selectedLayers(EditState& state) {
    std::vector<CompositionLayer*> layers;
    for (const LayerPlace& place : state.selection.layers())
        if (CompositionLayer* const layer = state.layer(place.scene, place.layer)) layers.push_back(layer);
    return layers;
}

// Times of layers and scenes go through their operations, which know what else must hold.
bool setTime(EditState& state, const JsonPointer& path, const Json& value) {
    const auto seconds = value.doubleValue();
    if (path.tokens().size() != 1 || !seconds) return false;
    const std::string& key = path.tokens().front();
    const std::vector<LayerPlace> places = state.selection.layers();
    if (places.empty() && key == "durationSec" && state.selection.scene) {
        const double least = timeline::minimumSceneDurationSec(state.spec, *state.selection.scene);
        SceneOperations::setSceneDurationRescaling(state, *state.selection.scene, std::max(*seconds, least));
        return true;
    }
    if (places.empty() || (key != "fromSec" && key != "durationSec")) return false;
    for (const LayerPlace& place : places) {
        const CompositionLayer* const layer = state.layer(place.scene, place.layer);
        if (!layer) continue;
        if (key == "fromSec")
            LayerOperations::moveLayer(state, place.scene, place.layer, *seconds);
        else
            LayerOperations::setLayerEnd(state, place.scene, place.layer, layer->fromSec + *seconds);
    }
    return true;
}

// The value of every selected thing, by the type it has; made where it was absent.
template <class Visit> void visitEach(EditState& state, const Visit& visit) {
    const std::vector<CompositionLayer*> layers = selectedLayers(state);
    for (CompositionLayer* const layer : layers) visit(typeOf<CompositionLayer>(), layer);
    if (!layers.empty()) return;
    if (state.selection.scene && state.scene(*state.selection.scene))
        return visit(typeOf<CompositionScene>(), state.scene(*state.selection.scene));
    visit(typeOf<CompositionSpec>(), &state.spec);
}

// The last emphasis is new, and of no word yet.
void emphasizeNextWord(TextContent& text) {
    std::set<std::int64_t> taken;
    for (const EmphasisSpan& span : text.emphasis)
        taken.insert(span.wordIndices.begin(), span.wordIndices.end());
    const auto count = std::int64_t(KineticMath::words(text.text).size());
    for (std::int64_t word = 0; word < count; ++word)
        if (!taken.contains(word)) {
            text.emphasis.back().wordIndices = {word};
            return;
        }
}

const Field* rowOf(const Type& type, const std::string& key) {
    return type.kind == Type::Kind::record ? static_cast<const RecordType&>(type).find(key) : nullptr;
}

}   // namespace

Complaint set(EditState& state, const JsonPointer& path, const Json& value) {
    if (setTime(state, path, value)) return std::nullopt;
    EditState made = state;
    try {
        const std::vector<CompositionLayer*> layers = selectedLayers(made);
        for (CompositionLayer* const layer : layers) *layer = changedLayer(*layer, path, value);
        if (layers.empty() && made.selection.scene && made.scene(*made.selection.scene)) {
            CompositionScene& scene = *made.scene(*made.selection.scene);
            std::vector<CompositionLayer> kept = scene.layers;   // with where they came from
            scene = changed(scene, path, value);
            scene.layers = std::move(kept);
        } else if (layers.empty()) {
            made.spec = changedSpec(made.spec, path, value);
        }
    } catch (const Failure& failure) {
        return failure.message();
    }
    state = std::move(made);
    return std::nullopt;
}

Complaint setPart(EditState& state, const JsonPointer& path, const std::string& part, double value) {
    bool isSet = false;
    visitEach(state, [&](const Type& type, void* whole) {
        const Located found = locate(type, whole, path);
        const Field* const row = found ? rowOf(*found.type, part) : nullptr;
        if (!row) return;
        *static_cast<double*>(row->reach(found.value)) = value;
        isSet = true;
    });
    return isSet ? std::nullopt : Complaint(path.text() + " is not there to be changed.");
}

Complaint reset(EditState& state, const InspectorRow& row) {
    if (row.control == InspectorRow::Control::presence) {
        setPresent(state, row.path, false);
        return std::nullopt;
    }
    return set(state, row.path, row.rest);
}

void setPresent(EditState& state, const JsonPointer& path, bool isThere) {
    visitEach(state, [&](const Type& type, void* whole) {
        const Located parent = locate(type, whole, path.parent());
        const Field* const row = parent ? rowOf(*parent.type, path.tokens().back()) : nullptr;
        if (!row || row->type().kind != Type::Kind::optional) return;
        const auto& optional = static_cast<const OptionalType&>(row->type());
        void* const member = row->reach(parent.value);
        if (!isThere)
            optional.reset(member);
        else if (!optional.held(member))
            optional.emplace(member);
    });
}

void setAlternative(EditState& state, const JsonPointer& path, const std::string& tag) {
    visitEach(state, [&](const Type& type, void* whole) {
        const Located found = locate(type, whole, path);
        if (!found || found.type->kind != Type::Kind::choice) return;
        const auto& choice = static_cast<const ChoiceType&>(*found.type);
        const Alternative* const wanted = choice.find(tag);
        if (wanted && &choice.heldBy(found.value) != wanted) wanted->emplace(found.value);
    });
}

void append(EditState& state, const JsonPointer& path, double atSec) {
    if (path.text() == "/audio/cues") return AudioOperations::addSoundCue(state, atSec);
    visitEach(state, [&](const Type& type, void* whole) {
        const Located found = locate(type, whole, path);
        if (!found || found.type->kind != Type::Kind::list) return;
        const auto& list = static_cast<const ListType&>(*found.type);
        const Json before = writeValue(list, found.value);
        const std::size_t size = list.size(found.value);
        list.renew(found.value, size + 1);
        for (std::size_t i = 0; i < size; ++i)
            readValue(list.element(), (*before.array())[i], list.at(found.value, i), KeyPath());
    });
    if (path.text() != "/text/emphasis") return;
    for (CompositionLayer* const layer : selectedLayers(state))
        if (auto* const text = std::get_if<TextContent>(&layer->content)) emphasizeNextWord(*text);
}

void setCorner(EditState& state, const std::string& axis, double toPx, double sizePx) {
    for (CompositionLayer* const layer : selectedLayers(state))
        (axis == "x" ? layer->position.x : layer->position.y) = toPx + sizePx / 2;
}

Complaint remove(EditState& state, const JsonPointer& path) { return set(state, path, Json()); }

}   // namespace tavix::InspectorEdit
