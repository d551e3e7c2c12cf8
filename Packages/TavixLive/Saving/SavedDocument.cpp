#include "TavixLive/Saving/SavedDocument.h"

#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Paths/Matching.h"
#include "TavixCore/Paths/Merge.h"
#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionBeats.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace tavix {

namespace {

// Three forms of a document: as resolving made it, as it has become, and as it was written.
struct Forms {
    Json base, current, written;
};

JsonArray* listAt(Json& object, std::string_view key) {
    const JsonObject* members = object.object();
    const Json* found = members ? members->find(key) : nullptr;
    return found ? const_cast<Json*>(found)->array() : nullptr;
}

JsonArray* layersOf(Json& document, std::size_t scene) {
    JsonArray* scenes = listAt(document, "scenes");
    return scenes && scene < scenes->size() ? listAt((*scenes)[scene], "layers") : nullptr;
}

void replace(JsonArray& list, std::size_t from, std::size_t count, JsonArray by) {
    const auto first = list.begin() + std::ptrdiff_t(from);
    list.erase(first, first + std::ptrdiff_t(count));
    list.insert(list.begin() + std::ptrdiff_t(from), std::make_move_iterator(by.begin()),
        std::make_move_iterator(by.end()));
}

// Neighbouring layers of a scene that one written layer was turned into, by a name.
struct Group {
    std::size_t first, count, writtenAs;
};

std::vector<Group> bakedGroups(const CompositionScene& scene) {
    std::vector<Group> groups;
    for (std::size_t i = 0; i < scene.layers.size(); ++i) {
        const LayerOrigin& origin = scene.layers[i].origin;
        if (origin.baked == LayerOrigin::Baked::nothing || !origin.writtenAs) continue;
        if (!groups.empty() && groups.back().writtenAs == *origin.writtenAs &&
            groups.back().first + groups.back().count == i)
            ++groups.back().count;
        else
            groups.push_back({i, 1, *origin.writtenAs});
    }
    return groups;
}

// Where the group stands unchanged among the layers; nothing where an edit touched it.
std::optional<std::size_t> untouched(const JsonArray& group, const JsonArray& among) {
    const auto found = std::search(among.begin(), among.end(), group.begin(), group.end());
    if (found == among.end()) return std::nullopt;
    return std::size_t(found - among.begin());
}

// What a name was turned into becomes the name again in all three forms, or nowhere.
void restoreNames(Forms& forms, const CompositionSpec& base) {
    const JsonArray* const before = listAt(forms.base, "scenes");
    const JsonArray* const after = listAt(forms.current, "scenes");
    if (before == nullptr || after == nullptr) return;
    const std::vector<std::optional<std::size_t>> origin = matched(*before, *after);
    for (std::size_t i = 0; i < base.scenes.size(); ++i) {
        const auto now = std::ranges::find(origin, std::optional(i));
        JsonArray* const baseLayers = layersOf(forms.base, i);
        JsonArray* const writtenLayers = layersOf(forms.written, i);
        JsonArray* const currentLayers =
            now == origin.end() ? nullptr : layersOf(forms.current, std::size_t(now - origin.begin()));
        if (baseLayers == nullptr || writtenLayers == nullptr) continue;
        std::vector<Group> groups = bakedGroups(base.scenes[i]);
        std::ranges::reverse(groups);   // so that what is replaced moves nothing that comes next
        for (const Group& group : groups) {
            if (group.writtenAs >= writtenLayers->size()) continue;
            const auto first = baseLayers->begin() + std::ptrdiff_t(group.first);
            const JsonArray made(first, first + std::ptrdiff_t(group.count));
            const auto at = currentLayers ? untouched(made, *currentLayers) : std::nullopt;
            const Json name = (*writtenLayers)[group.writtenAs];
            if (at) {
                replace(*baseLayers, group.first, group.count, {name});
                replace(*currentLayers, *at, group.count, {name});
            } else {
                replace(*writtenLayers, group.writtenAs, 1, made);
            }
        }
    }
}

Json* memberAt(Json& document, const JsonPointer& pointer) {
    return const_cast<Json*>(find(document, pointer));
}

// A time in seconds that was edited counts, and not the beat or the mark that it came from.
void dropSymbols(Json& document, const std::vector<MergeConflict>& conflicts, CompositionSpec& current) {
    for (const MergeConflict& conflict : conflicts) {
        if (conflict.path.isRoot()) continue;
        const Located owner = locate(typeOf<CompositionSpec>(), &current, conflict.path.parent());
        Json* const object = memberAt(document, conflict.path.parent());
        if (!owner || owner.type->kind != Type::Kind::record || object == nullptr || !object->object())
            continue;
        for (const Field& row : static_cast<const RecordType&>(*owner.type).rows)
            if ((isInBeats(row.role) || isByMark(row.role)) && row.partner == conflict.path.tokens().back())
                object->object()->remove(row.key);
    }
}

// The document as it would be read again; nothing when it cannot be.
std::optional<CompositionSpec> readAgain(const Json& document, const SavingRoad& road) try {
    return CompositionRoad::resolve(decodeValue<CompositionSpec>(document), road.assetRoot, road.load).spec;
} catch (const Failure&) {
    return std::nullopt;
}

// A layer that would not come out right keeps no time by a beat or a mark.
bool mendTimes(Json& document, const CompositionSpec& read, const CompositionSpec& current) {
    bool hasMended = false;
    for (std::size_t i = 0; i < std::min(read.scenes.size(), current.scenes.size()); ++i) {
        JsonArray* const layers = layersOf(document, i);
        const auto &before = read.scenes[i].layers, &wanted = current.scenes[i].layers;
        if (layers == nullptr || before.size() != wanted.size()) continue;
        for (std::size_t j = 0; j < wanted.size(); ++j) {
            const auto writtenAs = before[j].origin.writtenAs;
            if (before[j] == wanted[j] || !writtenAs || *writtenAs >= layers->size()) continue;
            JsonObject* const layer = (*layers)[*writtenAs].object();
            if (layer == nullptr) continue;
            const Json inSeconds = writeValue(typeOf<CompositionLayer>(), &wanted[j]);
            for (const Field& row : fieldsOf(std::type_identity<CompositionLayer>{}).type.rows) {
                if (!(isInBeats(row.role) || isByMark(row.role)) || !layer->find(row.key)) continue;
                layer->remove(row.key);
                if (const Json* sec = inSeconds.find(row.partner))
                    layer->set(row.partner, *sec);
                else
                    layer->remove(row.partner);
                hasMended = true;
            }
        }
    }
    return hasMended;
}

// Scenes that would not come out right are written as they have become.
bool mendScenes(Json& document, const CompositionSpec& read, const CompositionSpec& current) {
    JsonArray* const scenes = listAt(document, "scenes");
    if (scenes == nullptr || scenes->size() != current.scenes.size() || read.scenes.size() != scenes->size())
        return false;
    bool hasMended = false;
    for (std::size_t i = 0; i < scenes->size(); ++i) {
        if (read.scenes[i] == current.scenes[i]) continue;
        (*scenes)[i] = writeValue(typeOf<CompositionScene>(), &current.scenes[i]);
        hasMended = true;
    }
    return hasMended;
}

// The beats at which the author has put anything.
std::vector<double> beatsIn(const CompositionSpec& written) {
    std::vector<double> beats;
    walk(written, [&](const Place& place) {
        const double* const beat = place.row && isInBeats(place.row->role) ? place.as<double>() : nullptr;
        if (beat) beats.push_back(*beat);
        return Walk::into;
    });
    return beats;
}

// The times of one layer in a document, told in beats where they stand on one.
class BeatTeller {
public:
    BeatTeller(const BeatGrid& grid, std::vector<double> authored)
        : grid_(grid), authored_(std::move(authored)) {}
    bool hasTold() const { return hasTold_; }

    void tell(Json& layer, const CompositionLayer& read, double sceneStartSec) {
        tell(layer, "fromSec", "fromBeat", sceneStartSec + read.fromSec, Any::gridLine);
        if (read.durationSec)
            tell(layer, "durationSec", "toBeat", sceneStartSec + read.fromSec + *read.durationSec,
                Any::gridLine);
        JsonArray* const tracks = listAt(layer, "tracks");
        for (std::size_t i = 0; tracks && i < std::min(tracks->size(), read.tracks.size()); ++i)
            if (JsonArray* const keyframes = listAt((*tracks)[i], "keyframes"))
                for (std::size_t k = 0; k < std::min(keyframes->size(), read.tracks[i].keyframes.size()); ++k)
                    tell((*keyframes)[k], "t", "atBeat",
                        sceneStartSec + read.fromSec + read.tracks[i].keyframes[k].t, Any::authored);
    }

private:
    enum class Any { gridLine, authored };   // beats that are taken: halves of them, or those of the author

    void tell(Json& owner, const char* secKey, const char* beatKey, double filmSec, Any any) {
        JsonObject* const object = owner.object();
        if (!object || !object->find(secKey) || object->find(beatKey)) return;
        const double beat = (filmSec - grid_.offsetSec) / grid_.beatDuration(),
                     halves = std::round(beat * 2) / 2;
        constexpr double sameBeat = 1e-6;
        std::optional<double> told;
        for (const double authored : authored_)
            if (std::abs(authored - beat) < sameBeat) told = authored;
        if (!told && any == Any::gridLine && std::abs(halves - beat) < sameBeat) told = halves;
        if (!told) return;
        object->remove(secKey);
        object->set(beatKey, *told);
        hasTold_ = true;
    }

    const BeatGrid& grid_;
    std::vector<double> authored_;
    bool hasTold_ = false;
};

// Layers that are new, such as a part of one that was cut, in a film whose author counts in beats; and those
// whose beats went with an edit.
bool tellInBeats(Json& document, const Json& written, const CompositionSpec& read) {
    const auto grid = CompositionBeats::grid(read);
    if (!grid) return false;
    const CompositionSpec author = decodeValue<CompositionSpec>(written);
    BeatTeller teller(*grid, beatsIn(author));
    if (!CompositionBeats::containsBeatRefs(author)) return false;
    const CompositionTimeline clock(read);
    Json before = written;
    JsonArray* const scenesBefore = listAt(before, "scenes");
    JsonArray* const scenes = listAt(document, "scenes");
    if (!scenes || !scenesBefore || scenes->size() != read.scenes.size()) return false;
    const auto origin = matched(*scenesBefore, *scenes);
    for (std::size_t i = 0; i < scenes->size(); ++i) {
        JsonArray* const layers = layersOf(document, i);
        JsonArray* const layersBefore = origin[i] ? layersOf(before, *origin[i]) : nullptr;
        if (!layers) continue;
        const auto from = layersBefore ? matched(*layersBefore, *layers)
                                       : std::vector<std::optional<std::size_t>>(layers->size());
        for (const CompositionLayer& layer : read.scenes[i].layers) {
            const auto at = layer.origin.writtenAs;
            if (!at || *at >= layers->size() || layer.origin.baked == LayerOrigin::Baked::formation) continue;
            const bool wasInBeats =
                from[*at] &&
                CompositionBeats::containsBeatRefs(CompositionSpec{
                    .scenes = {{.layers = {decodeValue<CompositionLayer>((*layersBefore)[*from[*at]])}}}});
            if (!from[*at] || (wasInBeats && (*layersBefore)[*from[*at]] != (*layers)[*at]))
                teller.tell((*layers)[*at], layer, clock.startSec[i]);
        }
    }
    return teller.hasTold();
}

// The same document with its times in beats, where it reads the same.
Json inBeats(Json document, const Json& written, const CompositionSpec& current, const SavingRoad& road) {
    Json told = document;
    const auto before = readAgain(document, road);
    if (!before || !tellInBeats(told, written, *before)) return document;
    auto read = readAgain(told, road);
    if (read && !(*read == current) && mendTimes(told, *read, current)) read = readAgain(told, road);
    return read == current ? told : document;
}

Json secondsOrBeats(
    const Json& written, const CompositionSpec& base, const CompositionSpec& current, const SavingRoad& road);

}   // namespace

Json savedDocument(const Json& written, const CompositionSpec& base, const CompositionSpec& current,
    const SavingRoad& road) {
    if (base == current) return written;
    return inBeats(secondsOrBeats(written, base, current, road), written, current, road);
}

namespace {

Json secondsOrBeats(const Json& written, const CompositionSpec& base, const CompositionSpec& current,
    const SavingRoad& road) {
    const Type& type = typeOf<CompositionSpec>();
    Forms forms{writeValue(type, &base), writeValue(type, &current), written};
    restoreNames(forms, base);
    Merged merged = merge(forms.base, forms.current, forms.written);
    CompositionSpec sought = current;
    dropSymbols(merged.document, merged.conflicts, sought);
    auto read = readAgain(merged.document, road);
    if (read == current) return merged.document;
    if (read && mendTimes(merged.document, *read, current)) {
        read = readAgain(merged.document, road);
        if (read == current) return merged.document;
    }
    if (read && mendScenes(merged.document, *read, current)) {
        read = readAgain(merged.document, road);
        if (read == current) return merged.document;
    }
    return writeValue(type, &current);
}

}   // namespace

}   // namespace tavix
