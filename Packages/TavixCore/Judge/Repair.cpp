#include "TavixCore/Judge/Repair.h"

#include "TavixBase/NearestWord.h"
#include "TavixCore/Device/DeviceChoreographyRef.h"
#include "TavixCore/Device/DeviceMotionRef.h"
#include "TavixCore/Findings/IgnoredParts.h"
#include "TavixCore/Judge/BeatCuts.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Typography/KineticVocabulary.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tavix::CompositionLint {
namespace {

using Kind = PatchOperation::Kind;

bool endsKey(std::string_view rest) { return rest.empty() || rest.front() == '.' || rest.front() == '['; }

// Takes "[index]" off the front.
std::optional<std::size_t> takeIndex(std::string_view& path) {
    std::size_t index = 0;
    const auto read = std::from_chars(path.data() + 1, path.data() + path.size(), index);
    if (read.ec != std::errc() || read.ptr == path.data() + path.size() || *read.ptr != ']')
        return std::nullopt;
    path.remove_prefix(static_cast<std::size_t>(read.ptr - path.data()) + 1);
    return index;
}

// Takes a key off the front: of those that the object has the longest, for a key may hold any character.
std::string takeKey(std::string_view& path, const Json* holder) {
    std::string_view key;
    if (const JsonObject* members = holder ? holder->object() : nullptr)
        for (const JsonMember& member : *members)
            if (member.key.size() > key.size() && path.starts_with(member.key) &&
                endsKey(path.substr(member.key.size())))
                key = member.key;
    if (key.empty()) key = path.substr(0, path.find_first_of(".["));
    path.remove_prefix(key.size());
    return std::string(key);
}

// One finding and the document that it is of.
class Repairing {
public:
    Repairing(const Finding& finding, const Json& written)
        : finding_(finding), written_(written), at_(pointerOf(finding.path, written)) {}

    JsonPatch patch(Rule rule) const {
        switch (rule) {
        case Rule::keyUnknown:
        case Rule::wordUnknown:
        case Rule::valueLimited: return ofIgnoredPart();
        case Rule::valueDropped: return nearAnimation();
        case Rule::opacityRange: return clamped(0, 1);
        case Rule::effectUnknown: return near(at_, effectKinds());
        case Rule::effectRange: return inRange();
        case Rule::animationUnknown: return near(at_, KineticVocabulary::presetIDs);
        case Rule::alignmentUnknown: return alignment();
        case Rule::soundUnknown: return near(at_ / "sound", allNames<SFXCatalog::Sound>());
        case Rule::muteUnknown: return near(at_, codes());
        case Rule::cutOffBeat: return onBeat();
        default: return {};
        }
    }

private:
    JsonPatch replacing(const JsonPointer& at, Json value) const {
        if (!find(written_, at)) return {};
        return {{Kind::replace, at, {}, std::move(value)}};
    }

    JsonPatch near(const JsonPointer& at, std::span<const std::string_view> known) const {
        const Json* word = find(written_, at);
        const auto nearest = word && word->text() ? nearestWord(*word->text(), known) : std::nullopt;
        return nearest ? replacing(at, *nearest) : JsonPatch();
    }

    JsonPatch clamped(double least, double most) const {
        const Json* value = find(written_, at_);
        const auto number = value ? value->doubleValue() : std::nullopt;
        return number ? replacing(at_, std::clamp(*number, least, most)) : JsonPatch();
    }

    JsonPatch ofIgnoredPart() const {
        const std::vector<IgnoredPart> parts = ignoredParts<CompositionSpec>(written_);
        const auto part = std::ranges::find(parts, finding_.path, &IgnoredPart::path);
        if (part == parts.end()) return {};
        using Reason = IgnoredPart::Reason;
        if (part->reason == Reason::clamped) return replacing(at_, part->limits.clamp(part->value));
        if (part->nearest.empty()) return {};
        if (part->reason == Reason::unknownWord) return replacing(wordAt(), part->nearest);
        if (part->reason != Reason::unknownKey || at_.isRoot()) return {};
        const JsonPointer right = at_.parent() / part->nearest;
        if (!find(written_, at_) || find(written_, right)) return {};   // two would be one
        return {{Kind::move, right, at_, {}}};
    }

    // A union is told at its object, and its word is the tag in it.
    JsonPointer wordAt() const {
        const Json* value = find(written_, at_);
        return value && value->object() && value->find("kind") ? at_ / "kind" : at_;
    }

    JsonPatch nearAnimation() const {
        if (finding_.path.ends_with(".motionPreset.preset")) {
            const auto names = DeviceMotionPreset::knownRawValues();
            return near(at_, std::vector<std::string_view>(names.begin(), names.end()));
        }
        const bool isFormation = finding_.path.ends_with(".choreographyPreset.preset");
        return isFormation ? near(at_, allNames<DeviceChoreographyPreset>()) : JsonPatch();
    }

    JsonPatch inRange() const {
        if (at_.isRoot()) return {};
        const Json* effect = find(written_, at_.parent());
        const Json* kind = effect ? effect->find("kind") : nullptr;
        if (!kind || !kind->text()) return {};
        for (const EffectRange& range : legalRanges(*kind->text()))
            if (range.param == at_.tokens().back()) return clamped(range.min, range.max);
        return {};
    }

    JsonPatch alignment() const {
        const Json* word = find(written_, at_);
        constexpr std::string_view known[] = {"left", "center", "right"};
        for (const char* other : {"middle", "centre", "centered", "centred"})
            if (word && word->stringValue() == other) return replacing(at_, "center");
        return near(at_, known);
    }

    static std::vector<std::string_view> codes() {
        std::vector<std::string_view> all;
        for (const RuleEntry& entry : rules()) all.push_back(entry.code);
        return all;
    }

    // The finding is told of the scene that begins too early or too late; the one before sets its time.
    JsonPatch onBeat() const {
        const auto index = at_.isRoot() ? std::nullopt : indexIn(at_.tokens().back());
        if (!index || *index == 0) return {};
        const JsonPointer lengthAt = at_.parent() / (*index - 1) / "durationSec";
        if (!find(written_, lengthAt)) return {};   // it is in beats already
        const CompositionSpec spec =
            CompositionRoad::resolve(decodeValue<CompositionSpec>(written_), std::nullopt).spec;
        if (*index >= spec.scenes.size() || spec.scenes[*index - 1].durationBeats) return {};
        const auto cut = beatCut(spec, CompositionTimeline(spec), *index);
        if (!cut || !(cut->rightLengthSec > 0)) return {};
        return replacing(lengthAt, std::round(cut->rightLengthSec * 1e6) / 1e6);
    }

    const Finding& finding_;
    const Json& written_;
    JsonPointer at_;
};

}   // namespace

JsonPointer pointerOf(std::string_view path, const Json& written) {
    JsonPointer pointer;
    const Json* at = &written;
    while (!path.empty()) {
        if (path.front() == '.') path.remove_prefix(1);
        if (path.starts_with('[')) {
            const auto index = takeIndex(path);
            if (!index) break;
            pointer = pointer / *index;
            const JsonArray* elements = at ? at->array() : nullptr;
            at = elements && *index < elements->size() ? &(*elements)[*index] : nullptr;
        } else {
            const std::string key = takeKey(path, at);
            if (key.empty()) break;
            pointer = pointer / key;
            at = at ? at->find(key) : nullptr;
        }
    }
    return pointer;
}

JsonPatch repairOf(const Finding& finding, const Json& written) {
    const auto rule = ruleOf(finding.code);
    return rule ? Repairing(finding, written).patch(*rule) : JsonPatch();
}

bool keepsIntent(Rule rule) {
    switch (rule) {
    case Rule::keyUnknown:
    case Rule::wordUnknown:
    case Rule::valueLimited:
    case Rule::valueDropped:
    case Rule::opacityRange:
    case Rule::effectUnknown:
    case Rule::effectRange:
    case Rule::animationUnknown:
    case Rule::alignmentUnknown:
    case Rule::soundUnknown:
    case Rule::muteUnknown: return true;
    default: return false;
    }
}

}   // namespace tavix::CompositionLint
