#include "TavixLive/Model/ScenePatch.h"

#include "TavixCore/Support/Document.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavix {

namespace {

using Kind = PatchOperation::Kind;

constexpr std::string_view scenesKey = "scenes";

// What follows the first tokens.
JsonPointer within(const JsonPointer& path, std::size_t dropped) {
    JsonPointer rest;
    for (std::size_t i = dropped; i < path.tokens().size(); ++i) rest = rest / path.tokens()[i];
    return rest;
}

bool isInScenes(const JsonPointer& path) {
    return !path.tokens().empty() && path.tokens().front() == scenesKey;
}

// A scene as it is in the document, or as it is written by now.
struct Slot {
    std::size_t from = 0;
    std::optional<Json> written;
};

class Scenes {
public:
    explicit Scenes(CompositionSpec& document) : document_(document) {
        for (std::size_t i = 0; i < document.scenes.size(); ++i) slots_.push_back({i, {}});
    }

    // False where the operation concerns more than one scene, or none that is there.
    bool apply(const PatchOperation& operation) {
        const auto& tokens = operation.path.tokens();
        if (tokens.size() < 2 || operation.kind == Kind::move || operation.kind == Kind::copy) return false;
        const auto index = indexIn(tokens[1]);
        if (!index) return false;
        if (tokens.size() == 2 && operation.kind == Kind::add) {
            if (*index > slots_.size()) return false;
            slots_.insert(slots_.begin() + std::ptrdiff_t(*index), Slot{0, operation.value});
            return true;
        }
        if (*index >= slots_.size()) return false;
        Slot& slot = slots_[*index];
        if (tokens.size() == 2 && operation.kind == Kind::remove) {
            slots_.erase(slots_.begin() + std::ptrdiff_t(*index));
            return true;
        }
        Json before = slot.written ? std::move(*slot.written)
                                   : writeValue(typeOf<CompositionScene>(), &document_.scenes[slot.from]);
        PatchOperation inside = operation;
        inside.path = within(operation.path, 2);
        slot.written = applyPatch({inside}, std::move(before));
        return true;
    }

    void finish() {
        std::vector<CompositionScene> scenes(slots_.size());
        for (std::size_t i = 0; i < slots_.size(); ++i)
            if (slots_[i].written)
                readValue(typeOf<CompositionScene>(), *slots_[i].written, &scenes[i], KeyPath());
            else
                scenes[i] = std::move(document_.scenes[slots_[i].from]);
        document_.scenes = std::move(scenes);
    }

private:
    CompositionSpec& document_;
    std::vector<Slot> slots_;
};

}   // namespace

CompositionSpec followed(CompositionSpec document, const JsonPatch& patch) {
    JsonPatch others;   // of what is not in a scene
    Scenes scenes(document);
    for (const PatchOperation& operation : patch) {
        const bool isMoved = operation.kind == Kind::move || operation.kind == Kind::copy;
        if (!isInScenes(operation.path) && !(isMoved && isInScenes(operation.from)))
            others.push_back(operation);
        else if (!scenes.apply(operation))
            return applyTo(document, patch);   // which nothing has been done to
    }
    scenes.finish();
    if (others.empty()) return document;
    std::vector<CompositionScene> kept = std::exchange(document.scenes, {});
    document = applyTo(document, others);
    document.scenes = std::move(kept);
    return document;
}

}   // namespace tavix
