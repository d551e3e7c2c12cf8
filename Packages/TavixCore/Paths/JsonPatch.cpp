#include "TavixCore/Paths/JsonPatch.h"

#include "TavixCore/Support/Names.h"
#include "TavixCore/Support/ReadingErrors.h"

#include <utility>

namespace tavix {

namespace {

using Kind = PatchOperation::Kind;

bool hasFrom(Kind kind) { return kind == Kind::move || kind == Kind::copy; }
bool hasValue(Kind kind) { return kind == Kind::add || kind == Kind::replace || kind == Kind::test; }

const Json& requiredIn(const JsonObject& operation, std::string_view key, const KeyPath& at) {
    const Json* const found = operation.find(key);
    if (!found) failWithMissing(KeyPath(at, key), found);
    return *found;
}

JsonPointer pointerIn(const JsonObject& operation, std::string_view key, const KeyPath& at) {
    const KeyPath here(at, key);
    const std::string& text = textAt(requiredIn(operation, key, at), here);
    try {
        return JsonPointer::parse(text);
    } catch (const Failure& failure) {
        failWithData(here, failure.message());
    }
}

PatchOperation readOperation(const Json& json, const KeyPath& at) {
    const JsonObject& object = objectAt(json, at);
    PatchOperation operation;
    readValue(typeOf<Kind>(), requiredIn(object, "op", at), &operation.kind, KeyPath(at, "op"));
    operation.path = pointerIn(object, "path", at);
    if (hasFrom(operation.kind)) operation.from = pointerIn(object, "from", at);
    if (hasValue(operation.kind)) operation.value = requiredIn(object, "value", at);
    return operation;
}

// Runs one operation after another on a document of its own.
class Patching {
public:
    explicit Patching(Json document) : document_(std::move(document)) {}

    void run(const PatchOperation& operation, std::size_t index) {
        index_ = index;
        switch (operation.kind) {
        case Kind::add: return add(operation.path, operation.value);
        case Kind::remove: removed(operation.path); return;
        case Kind::replace: existing(operation.path) = operation.value; return;
        case Kind::copy: return add(operation.path, Json(existing(operation.from)));
        case Kind::move: return move(operation.from, operation.path);
        case Kind::test:
            if (existing(operation.path) != operation.value)
                fail(operation.path, "is another value than the one tested for");
        }
    }

    Json document() && { return std::move(document_); }

private:
    [[noreturn]] void fail(const JsonPointer& path, const std::string& why) const {
        const std::string place =
            path.isRoot() ? "the document" : std::string("\"").append(path.text()).append("\"");
        throw PatchError(index_, path,
            "Operation " + std::to_string(index_) + " of the patch: " + place + " " + why + ".");
    }

    Json& existing(const JsonPointer& path) {
        if (const Json* found = find(document_, path)) return const_cast<Json&>(*found);
        fail(path, "does not exist");
    }

    // What holds the value that a pointer other than the root addresses.
    Json& holderOf(const JsonPointer& path) {
        Json& holder = existing(path.parent());
        if (!holder.array() && !holder.object())
            fail(path, "cannot exist: it would be inside " + std::string(holder.kindName()));
        return holder;
    }

    std::size_t indexAt(const JsonPointer& path, std::size_t size) const {
        const std::string& token = path.tokens().back();
        if (token == "-") return size;
        const auto index = indexIn(token);
        if (!index) fail(path, "is no place in a list: \"" + token + "\" is no index");
        if (*index > size) fail(path, "lies past the end of its list of " + std::to_string(size));
        return *index;
    }

    void add(const JsonPointer& path, Json value) {
        if (path.isRoot()) {
            document_ = std::move(value);
            return;
        }
        Json& holder = holderOf(path);
        if (JsonArray* elements = holder.array()) {
            const auto index = static_cast<std::ptrdiff_t>(indexAt(path, elements->size()));
            elements->insert(elements->begin() + index, std::move(value));
        } else {
            holder.object()->set(path.tokens().back(), std::move(value));
        }
    }

    Json removed(const JsonPointer& path) {
        Json value = std::move(existing(path));
        if (path.isRoot()) {
            document_ = Json();
            return value;
        }
        Json& holder = holderOf(path);
        if (JsonArray* elements = holder.array())
            elements->erase(elements->begin() + static_cast<std::ptrdiff_t>(*indexIn(path.tokens().back())));
        else
            holder.object()->remove(path.tokens().back());
        return value;
    }

    void move(const JsonPointer& from, const JsonPointer& path) {
        if (from == path) {
            existing(from);
            return;
        }
        if (from.holds(path)) fail(path, "lies inside the value that is moved there");
        add(path, removed(from));
    }

    Json document_;
    std::size_t index_ = 0;
};

}   // namespace

const Names<Kind>& namesOf(std::type_identity<Kind>) {
    static const Names<Kind> table{
        "operation", {{Kind::add, "add"}, {Kind::remove, "remove"}, {Kind::replace, "replace"},
                         {Kind::move, "move"}, {Kind::copy, "copy"}, {Kind::test, "test"}}};
    return table;
}

JsonPatch readPatch(const Json& json) {
    const KeyPath root;
    const JsonArray* const operations = json.array();
    if (!operations) failWithType(root, "a list of operations", json);
    JsonPatch patch;
    for (std::size_t i = 0; i < operations->size(); ++i)
        patch.push_back(readOperation((*operations)[i], KeyPath(root, i)));
    return patch;
}

Json writePatch(const JsonPatch& patch) {
    JsonArray operations;
    for (const PatchOperation& operation : patch) {
        JsonObject object{{"op", nameOf(operation.kind)}, {"path", operation.path.text()}};
        if (hasFrom(operation.kind)) object.set("from", operation.from.text());
        if (hasValue(operation.kind)) object.set("value", operation.value);
        operations.emplace_back(std::move(object));
    }
    return operations;
}

Json applyPatch(const JsonPatch& patch, Json document) {
    Patching patching(std::move(document));
    for (std::size_t i = 0; i < patch.size(); ++i) patching.run(patch[i], i);
    return std::move(patching).document();
}

}   // namespace tavix
