#include "TavixAgent/Edit/DocumentDiff.h"

#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Paths/JsonTextStyle.h"
#include "TavixCore/Paths/Matching.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix {
namespace {

constexpr std::size_t mostValueCharacters = 60, mostToldLines = 60;
constexpr double soundSec = 0.5;   // of a cue, whose file is not opened

struct Span {
    double fromSec = 0, toSec = 0;
};

std::string inShort(const Json& value) {
    const std::string text = styledJson(value, {}, "", 0);
    if (text.size() <= mostValueCharacters) return text;
    std::size_t end = mostValueCharacters;
    while ((static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;   // not within a character
    return text.substr(0, end) + "…";
}

const JsonArray& listAt(const Json* holder, std::string_view key) {
    static const JsonArray none;
    const Json* list = holder ? holder->find(key) : nullptr;
    return list && list->array() ? *list->array() : none;
}

Json without(const Json& object, std::string_view key) {
    JsonObject rest = object.object() ? *object.object() : JsonObject();
    rest.remove(key);
    return rest;
}

std::string nameOf(const Json& element, std::string_view kind, std::size_t index) {
    if (const Json* id = element.find("id"); id && id->text())
        return std::string(kind) + " \"" + *id->text() + "\"";
    if (const Json* text = element.find("text"))
        if (const Json* words = text->find("text"); words && words->text()) return "text " + inShort(*words);
    return std::string(kind) + " " + std::to_string(index);
}

class Comparison {
public:
    Comparison(const DiffSide& before, const DiffSide& after)
        : before_(before), after_(after), beforeClock_(before.spec), clock_(after.spec) {}

    std::vector<DocumentChange> run() && {
        const Span all{0, clock_.totalSec};
        compareValues(without(without(before_.written, "scenes"), "audio"),
            without(without(after_.written, "scenes"), "audio"), JsonPointer(), "the film", all);
        compareScenes();
        compareSound(all);
        return std::move(changes_);
    }

private:
    using Kind = PatchOperation::Kind;

    void tell(std::string what, const JsonPointer& path, std::string name, std::string words, Span span) {
        const auto thousandths = [](double sec) { return std::round(sec * 1000) / 1000; };
        span = {thousandths(span.fromSec), thousandths(std::max(span.toSec, span.fromSec))};
        changes_.push_back(
            {path.text(), std::move(what), std::move(name), std::move(words), span.fromSec, span.toSec});
    }

    // What differs between two values, each by itself.
    void compareValues(
        const Json& before, const Json& after, const JsonPointer& at, const std::string& name, Span span) {
        for (const PatchOperation& operation : diff(before, after)) {
            JsonPointer path = at;
            for (const std::string& token : operation.path.tokens()) path = path / token;
            const std::string key = operation.path.text().empty() ? "it" : operation.path.text().substr(1);
            const Json* old = find(before, operation.path);
            if (operation.kind == Kind::add)
                tell("added", path, name, key + " is " + inShort(operation.value), span);
            else if (operation.kind == Kind::remove)
                tell("removed", path, name, key + (old ? " was " + inShort(*old) : " is gone"), span);
            else if (operation.kind == Kind::replace)
                tell("changed", path, name,
                    key + (old ? " was " + inShort(*old) + ", is " : " is ") + inShort(operation.value),
                    span);
            else
                tell("moved", path, name, key + " has moved within its list", span);
        }
    }

    Span sceneSpan(const CompositionTimeline& clock, const CompositionSpec& spec, std::size_t scene) const {
        if (scene >= spec.scenes.size()) return {clock.totalSec, clock.totalSec};
        return {clock.startSec[scene], clock.startSec[scene] + spec.scenes[scene].durationSec};
    }

    // On the scene's clock: of all layers that a written one became.
    Span localWindow(const CompositionSpec& spec, std::size_t scene, std::size_t written) const {
        Span span{std::numeric_limits<double>::infinity(), 0};
        if (scene < spec.scenes.size())
            for (const CompositionLayer& layer : spec.scenes[scene].layers) {
                if (layer.origin.writtenAs != written) continue;
                const double end =
                    layer.durationSec ? layer.fromSec + *layer.durationSec : spec.scenes[scene].durationSec;
                span = {std::min(span.fromSec, layer.fromSec), std::max(span.toSec, end)};
            }
        return span.fromSec <= span.toSec ? span : Span{};
    }

    Span inFilm(std::size_t scene, Span local) const {
        const Span whole = sceneSpan(clock_, after_.spec, scene);
        return {std::min(whole.fromSec + std::max(local.fromSec, 0.0), whole.toSec),
            std::min(whole.fromSec + local.toSec, whole.toSec)};
    }

    void compareScenes() {
        const JsonArray& before = listAt(&before_.written, "scenes");
        const JsonArray& after = listAt(&after_.written, "scenes");
        const JsonPointer scenesAt = JsonPointer() / "scenes";
        const auto from = matched(before, after);
        for (std::size_t i = 0; i < before.size(); ++i)
            if (std::ranges::find(from, std::optional(i)) == from.end()) {
                const double sec =
                    std::min(sceneSpan(beforeClock_, before_.spec, i).fromSec, clock_.totalSec);
                tell("removed", scenesAt / i, nameOf(before[i], "scene", i), "the scene is gone",
                    {sec, clock_.totalSec});
            }
        std::size_t last = 0;
        for (std::size_t i = 0; i < after.size(); ++i) {
            const std::string name = nameOf(after[i], "scene", i);
            const double sec = sceneSpan(clock_, after_.spec, i).fromSec;
            if (!from[i]) {
                tell("added", scenesAt / i, name, "the scene is new", {sec, clock_.totalSec});
                continue;
            }
            if (*from[i] < last)
                tell("moved", scenesAt / i, name, "the scene was number " + std::to_string(*from[i]),
                    {0, clock_.totalSec});
            last = std::max(last, *from[i]);
            compareScene(before[*from[i]], after[i], *from[i], i, name);
        }
    }

    void compareScene(const Json& before, const Json& after, std::size_t beforeIndex, std::size_t index,
        const std::string& name) {
        const JsonPointer at = JsonPointer() / "scenes" / index;
        const Json oldRest = without(before, "layers"), newRest = without(after, "layers");
        Span span = sceneSpan(clock_, after_.spec, index);
        const auto differs = [&](std::string_view key) {
            const Json *a = before.find(key), *b = after.find(key);
            return a && b ? !(*a == *b) : a != b;
        };
        // What changes the clock touches all that follows.
        if (differs("durationSec") || differs("durationBeats") || differs("transition"))
            span.toSec = clock_.totalSec;
        compareValues(oldRest, newRest, at, name, span);
        compareLayers(before, after, beforeIndex, index);
    }

    void compareLayers(const Json& before, const Json& after, std::size_t beforeScene, std::size_t scene) {
        const JsonArray &old = listAt(&before, "layers"), &now = listAt(&after, "layers");
        const JsonPointer at = JsonPointer() / "scenes" / scene / "layers";
        const auto from = matched(old, now);
        for (std::size_t i = 0; i < old.size(); ++i)
            if (std::ranges::find(from, std::optional(i)) == from.end())
                tell("removed", JsonPointer() / "scenes" / beforeScene / "layers" / i,
                    nameOf(old[i], "layer", i), "the layer is gone",
                    inFilm(scene, localWindow(before_.spec, beforeScene, i)));
        std::size_t last = 0;
        for (std::size_t i = 0; i < now.size(); ++i) {
            const std::string name = nameOf(now[i], "layer", i);
            const Span window = localWindow(after_.spec, scene, i);
            if (!from[i]) {
                tell("added", at / i, name, "the layer is new", inFilm(scene, window));
                continue;
            }
            if (*from[i] < last)
                tell("moved", at / i, name, "it lies elsewhere among the layers", inFilm(scene, window));
            last = std::max(last, *from[i]);
            const Span earlier = localWindow(before_.spec, beforeScene, *from[i]);
            compareValues(old[*from[i]], now[i], at / i, name,
                inFilm(scene,
                    {std::min(window.fromSec, earlier.fromSec), std::max(window.toSec, earlier.toSec)}));
        }
    }

    void compareSound(Span all) {
        const Json *before = before_.written.find("audio"), *after = after_.written.find("audio");
        const JsonPointer at = JsonPointer() / "audio";
        compareValues(without(before ? *before : Json(), "cues"), without(after ? *after : Json(), "cues"),
            at, "the sound", all);
        const JsonArray &old = listAt(before, "cues"), &now = listAt(after, "cues");
        const auto from = matched(old, now);
        for (std::size_t i = 0; i < old.size(); ++i)
            if (std::ranges::find(from, std::optional(i)) == from.end())
                tell("removed", at / "cues" / i, "cue " + std::to_string(i), "was " + inShort(old[i]),
                    cueSpan(before_.spec, i));
        for (std::size_t i = 0; i < now.size(); ++i) {
            const std::string name = "cue " + std::to_string(i);
            if (from[i])
                compareValues(old[*from[i]], now[i], at / "cues" / i, name, cueSpan(after_.spec, i));
            else
                tell("added", at / "cues" / i, name, "is " + inShort(now[i]), cueSpan(after_.spec, i));
        }
    }

    Span cueSpan(const CompositionSpec& spec, std::size_t index) const {
        if (!spec.audio || index >= spec.audio->cues.size()) return {};
        const double sec = std::clamp(spec.audio->cues[index].atSec, 0.0, clock_.totalSec);
        return {sec, std::min(sec + soundSec, clock_.totalSec)};
    }

    const DiffSide &before_, &after_;
    CompositionTimeline beforeClock_, clock_;
    std::vector<DocumentChange> changes_;
};

}   // namespace

const Fields<DocumentChange>& fieldsOf(std::type_identity<DocumentChange>) {
    using R = DocumentChange;
    static const Fields<R> table{"DocumentChange",
        {field<&R::path>("path", "JSON Pointer, in the second document; of what went, in the first.")
                .required(),
            field<&R::what>("what", "One of added, removed, changed, moved."),
            field<&R::name>("name", "Whose it is."), field<&R::words>("words", "The change in words."),
            field<&R::fromSec>("fromSec", "Where the film first shows it."),
            field<&R::toSec>("toSec", "Where the film last shows it.")}};
    return table;
}

std::vector<DocumentChange> changesBetween(const DiffSide& before, const DiffSide& after) {
    return Comparison(before, after).run();
}

std::vector<double> momentsOf(const std::vector<DocumentChange>& changes, std::size_t most) {
    std::vector<double> moments;
    for (const DocumentChange& change : changes) {
        const double middle = (change.fromSec + change.toSec) / 2;
        const bool isShown = std::ranges::any_of(
            moments, [&](double sec) { return sec >= change.fromSec && sec <= change.toSec; });
        if (!isShown && moments.size() < most) moments.push_back(middle);
    }
    std::ranges::sort(moments);
    return moments;
}

std::string textOf(const std::vector<DocumentChange>& changes) {
    std::string text;
    for (std::size_t i = 0; i < std::min(changes.size(), mostToldLines); ++i) {
        const DocumentChange& change = changes[i];
        text += change.what + " " + change.path + " (" + change.name + ", " + twoDecimals(change.fromSec) +
                "-" + twoDecimals(change.toSec) + " s): " + change.words + "\n";
    }
    if (changes.size() > mostToldLines)
        text += "and " + std::to_string(changes.size() - mostToldLines) + " more\n";
    return text.empty() ? "Nothing differs.\n" : text;
}

}   // namespace tavix
