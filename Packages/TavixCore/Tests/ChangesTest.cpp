// The difference of documents, and merging them: laws over random documents, and cases.
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Paths/Merge.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tavix {
namespace {

// Random compositions, and changes of them as people make them.
class Documents {
public:
    explicit Documents(const char* seed) : dice_(seed), schema_(schemaOf<CompositionSpec>("T")) {}

    Json made() { return schema_.random(dice_, SchemaDocument::Manner::tame); }
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(dice_.next() % count); }

    Json changed(Json document, int times) {
        for (int i = 0; i < times; ++i) change(document);
        return document;
    }

    // Of a list: shuffled, shortened, lengthened. Of an object: a key removed or set.
    void change(Json& json) {
        if (JsonArray* elements = json.array(); elements && !elements->empty()) {
            const std::size_t which = below(elements->size());
            switch (below(5)) {
            case 0: elements->erase(elements->begin() + static_cast<std::ptrdiff_t>(which)); return;
            case 1: elements->push_back((*elements)[which]); return;
            case 2: std::swap((*elements)[which], (*elements)[below(elements->size())]); return;
            case 3: elements->insert(elements->begin(), made()); return;
            default: change((*elements)[which]); return;
            }
        }
        JsonObject* const members = json.object();
        if (!members || members->empty()) {
            json = static_cast<std::int64_t>(below(1000));
            return;
        }
        const JsonMember picked = *(members->begin() + static_cast<std::ptrdiff_t>(below(members->size())));
        if (below(6) == 0) return members->remove(picked.key);
        if (below(6) == 0) return members->set("new " + picked.key, picked.value);
        Json value = picked.value;
        change(value);
        members->set(picked.key, std::move(value));
    }

private:
    SeededRandom dice_;
    SchemaDocument schema_;
};

std::string inShort(const JsonPatch& patch) {
    std::string text;
    for (const PatchOperation& operation : patch) {
        text.append(text.empty() ? "" : "; ").append(nameOf(operation.kind)).append(" ");
        if (operation.kind == PatchOperation::Kind::move) text.append(operation.from.text()).append(" to ");
        text.append(operation.path.text());
    }
    return text;
}

TEST(Difference, AppliedToTheOneGivesTheOther) {
    Documents documents("difference");
    for (int i = 0; i < 150; ++i) {
        const Json a = documents.made();
        const Json b = i % 3 == 0 ? documents.made() : documents.changed(a, 1 + i % 7);
        SCOPED_TRACE(writeJson(a) + "\n---\n" + writeJson(b));
        const JsonPatch patch = diff(a, b);
        ASSERT_EQ(applyPatch(patch, a), b) << inShort(patch);
        ASSERT_EQ(diff(a, b).empty(), a == b);
        ASSERT_LE(patch.empty() ? 0 : writeJson(writePatch(patch)).size(),
            2 * writeJson(b).size() + 1000);   // not much longer than to say it all again
    }
}

TEST(Difference, OfRecordsMakesTheOneTheOther) {
    Documents documents("records");
    for (int i = 0; i < 30; ++i) {
        const auto a = decodeValue<CompositionSpec>(documents.made());
        const auto b = decodeValue<CompositionSpec>(documents.made());
        ASSERT_EQ(applyTo(a, diff(a, b)), b);
    }
    EXPECT_THROW(
        applyTo(CompositionSpec{}, {{PatchOperation::Kind::add, JsonPointer::parse("/scenes"), {}, 7}}),
        DecodingError);
}

// Of n things in any order, all but those that can stay are moved, and nothing else happens.
TEST(Difference, OfAnotherOrderIsMoves) {
    Documents documents("order");
    for (int i = 0; i < 60; ++i) {
        const bool hasIds = i % 2;
        JsonArray layers;
        for (int n = 0; n < 8; ++n) {
            JsonObject layer{{hasIds ? "id" : "name", "layer " + std::to_string(n)}, {"opacity", n}};
            layers.emplace_back(std::move(layer));
        }
        JsonArray other = layers;
        for (std::size_t k = 0; k < other.size(); ++k)
            std::swap(other[k], other[documents.below(other.size())]);
        const Json a = JsonObject{{"layers", layers}}, b = JsonObject{{"layers", other}};
        const JsonPatch patch = diff(a, b);
        ASSERT_EQ(applyPatch(patch, a), b);
        EXPECT_LT(patch.size(), layers.size()) << inShort(patch);
        for (const PatchOperation& operation : patch) EXPECT_EQ(operation.kind, PatchOperation::Kind::move);
    }
}

TEST(Difference, IsToldAsItCameAbout) {
    const struct {
        const char *before, *after, *told;
    } cases[] = {
        {"{}", "{}", ""},
        {R"({"a": "so much that stays as it was, and is not said twice", "b": 2})",
            R"({"a": "so much that stays as it was, and is not said twice", "c": 3})", "remove /b; add /c"},
        {R"({"a": {"x": 1, "y": "a long text that stays"}})",
            R"({"a": {"x": 2, "y": "a long text that stays"}})", "replace /a/x"},
        {"[1, 2, 3]", "[1, 5, 3]", "replace /1"},
        {R"({"a": 1, "b": 2})", R"({"c": 3, "d": 4})", "replace "},   // shorter than its parts
        {R"([{"id": "a", "text": "one of the layers"}, {"id": "b", "text": "another of them"}, {"id": "c"}])",
            R"([{"id": "c"}, {"id": "a", "text": "one of the layers"}, {"id": "b", "text": "another of them"}])",
            "move /2 to /0"},
        // A layer that moved and changed is moved and changed, though it has no id.
        {R"([{"kind": "text", "text": "hello world", "size": 3, "x": 1}, {"kind": "shape", "radius": 40, "fill": "red"}])",
            R"([{"kind": "shape", "radius": 40, "fill": "red"}, {"kind": "text", "text": "hello world", "size": 4, "x": 1}])",
            "move /1 to /0; replace /1/size"},
        // Another id is another layer, however alike.
        {R"([{"id": "a", "kind": "text", "text": "the same long text in both of them"}, {"id": "z", "text": "and a long text of its own that stays"}])",
            R"([{"id": "b", "kind": "text", "text": "the same long text in both of them"}, {"id": "z", "text": "and a long text of its own that stays"}])",
            "remove /0; add /0"},
        {R"([{"id": "a", "name": "the first of the layers"}, {"id": "b", "name": "the second of the layers"}])",
            R"([{"id": "a", "name": "the first of the layers"}, {"id": "n"}, {"id": "b", "name": "the second of the layers"}])",
            "add /1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.after);
        const Json a = parseJson(c.before), b = parseJson(c.after);
        EXPECT_EQ(inShort(diff(a, b)), c.told);
        EXPECT_EQ(applyPatch(diff(a, b), a), b);
    }
}

TEST(Merging, WithOneSideUnchangedGivesTheOther) {
    Documents documents("merge");
    for (int i = 0; i < 80; ++i) {
        const Json base = documents.made(), changed = documents.changed(base, 1 + i % 5);
        for (const Merged& merged :
            {merge(base, changed, base), merge(base, base, changed), merge(base, changed, changed)}) {
            EXPECT_EQ(merged.document, changed);
            EXPECT_TRUE(merged.conflicts.empty());
        }
    }
}

// Each side changes another half of the document.
TEST(Merging, OfChangesInDifferentPlacesHasBoth) {
    Documents documents("halves");
    for (int i = 0; i < 80; ++i) {
        const Json left = documents.made(), right = documents.made();
        const Json newLeft = documents.changed(left, 3), newRight = documents.changed(right, 3);
        const auto both = [](const Json& a, const Json& b) {
            return Json(JsonObject{{"left", a}, {"right", b}});
        };
        const Merged merged = merge(both(left, right), both(newLeft, right), both(left, newRight));
        EXPECT_EQ(merged.document, both(newLeft, newRight));
        EXPECT_TRUE(merged.conflicts.empty());
    }
}

// Whoever is called ours, the same places are in conflict.
TEST(Merging, FindsTheSameConflictsFromBothSides) {
    Documents documents("sides");
    for (int i = 0; i < 80; ++i) {
        const Json base = documents.made();
        const Json a = documents.changed(base, 3), b = documents.changed(base, 3);
        const Merged one = merge(base, a, b), other = merge(base, b, a);
        EXPECT_EQ(one.conflicts.size(), other.conflicts.size());
        if (one.conflicts.empty() && other.conflicts.empty()) {
            EXPECT_EQ(one.document, other.document);
        }
        for (const MergeConflict& conflict : one.conflicts) {
            EXPECT_NE(conflict.ours, conflict.theirs) << conflict.message();
            EXPECT_TRUE(conflict.message().ends_with('.'));
        }
    }
}

TEST(Merging, OfPeoplesEdits) {
    const struct {
        const char *base, *ours, *theirs, *merged, *conflicts;
    } cases[] = {
        {R"({"a": 1, "b": 1})", R"({"a": 2, "b": 1})", R"({"a": 1, "b": 2})", R"({"a": 2, "b": 2})", ""},
        {R"({"a": 1})", R"({"a": 2})", R"({"a": 3})", R"({"a": 2})", "'/a'"},
        {R"({"a": 1})", R"({})", R"({"a": 3})", R"({})", "'/a'"},
        {R"({"a": 1})", R"({})", R"({"a": 1, "b": 2})", R"({"b": 2})", ""},
        {R"({})", R"({"o": {"x": 1}})", R"({"o": {"y": 2}})", R"({"o": {"x": 1, "y": 2}})", ""},
        // One moves a layer, the other changes it and adds another after it.
        {R"([{"id": "a", "v": 1}, {"id": "b"}, {"id": "c"}])",
            R"([{"id": "b"}, {"id": "c"}, {"id": "a", "v": 1}])",
            R"([{"id": "a", "v": 2}, {"id": "n"}, {"id": "b"}, {"id": "c"}])",
            R"([{"id": "b"}, {"id": "c"}, {"id": "a", "v": 2}, {"id": "n"}])", ""},
        // One removes what the other leaves alone, and what the other changes.
        {R"([{"id": "a"}, {"id": "b"}])", R"([{"id": "b"}])", R"([{"id": "a"}, {"id": "b"}, {"id": "c"}])",
            R"([{"id": "b"}, {"id": "c"}])", ""},
        {R"([{"id": "a", "v": 1}, {"id": "b"}])", R"([{"id": "b"}])", R"([{"id": "a", "v": 2}, {"id": "b"}])",
            R"([{"id": "b"}])", "'/0'"},
        {R"([{"id": "a", "v": 1}, {"id": "b"}])", R"([{"id": "a", "v": 2}, {"id": "b"}])", R"([{"id": "b"}])",
            R"([{"id": "a", "v": 2}, {"id": "b"}])", "'/0'"},
        // Both add the same one.
        {R"([{"id": "a"}])", R"([{"id": "a"}, {"id": "n", "x": 1}])", R"([{"id": "a"}, {"id": "n", "y": 2}])",
            R"([{"id": "a"}, {"id": "n", "x": 1, "y": 2}])", ""},
        {R"([{"id": "a"}, {"id": "b"}, {"id": "c"}])", R"([{"id": "c"}, {"id": "a"}, {"id": "b"}])",
            R"([{"id": "b"}, {"id": "a"}, {"id": "c"}])", R"([{"id": "c"}, {"id": "a"}, {"id": "b"}])", "''"},
        {"[1, 2]", "[1, 3]", "[4, 2]", "[1, 3]", "''"},   // numbers are one value
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.merged);
        const Merged merged = merge(parseJson(c.base), parseJson(c.ours), parseJson(c.theirs));
        EXPECT_EQ(merged.document, parseJson(c.merged)) << writeJson(merged.document);
        std::string conflicts;
        for (const MergeConflict& conflict : merged.conflicts)
            conflicts.append(conflicts.empty() ? "" : " ").append("'" + conflict.path.text() + "'");
        EXPECT_EQ(conflicts, c.conflicts);
    }
    const Merged merged = merge(parseJson(R"({"a": 1})"), parseJson(R"({"a": "x"})"), parseJson("{}"));
    ASSERT_EQ(merged.conflicts.size(), 1u);
    EXPECT_EQ(merged.conflicts[0].message(), R"("/a" was 1; one side made it "x", the other absent.)");
}

}   // namespace
}   // namespace tavix
