// Changes of a document in its text: laws over random documents however they are laid out, and what authors
// see in their files.
#include "TavixCore/Paths/JsonText.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavix {
namespace {

std::string patched(const char* text, const char* patch, JsonDialect dialect = JsonDialect::strict) {
    return patchedText(text, readPatch(parseJson(patch)), dialect);
}

TEST(JsonText, AuthorsSeeOnlyTheirChange) {
    const struct {
        const char *text, *patch, *result;
    } cases[] = {
        // A number keeps its spelling wherever it is not the one that changes.
        {"{\"b\":1.50,\n \"a\" : 2e0}\n", R"([{"op": "replace", "path": "/a", "value": 3}])",
            "{\"b\":1.50,\n \"a\" : 3}\n"},
        // In the middle of a line.
        {"[1, 2]", R"([{"op": "add", "path": "/-", "value": 3}])", "[1, 2, 3]"},
        {"[1, 2]", R"([{"op": "add", "path": "/0", "value": 0}])", "[0, 1, 2]"},
        {"[1, 2]", R"([{"op": "remove", "path": "/0"}])", "[2]"},
        {"[1, 2]", R"([{"op": "remove", "path": "/1"}])", "[1]"},
        {"[1,2]", R"([{"op": "add", "path": "/1", "value": {"a": [1, 2]}}])", "[1,{\"a\": [1, 2]},2]"},
        {R"({"a":1})", R"([{"op": "add", "path": "/b", "value": {"c": [1, 2]}}])",
            R"({"a":1,"b":{"c":[1,2]}})"},
        // In lines of their own, with the indentation of the author.
        {"{\n    \"z\": 1,\n    \"a\": {}\n}", R"([{"op": "add", "path": "/m", "value": 2}])",
            "{\n    \"z\": 1,\n    \"a\": {},\n    \"m\": 2\n}"},
        {"{\n\t\"a\": 1,\n\t\"c\": 2\n}", R"([{"op": "add", "path": "/b", "value": {"x": {"y": 1}}}])",
            "{\n\t\"a\": 1,\n\t\"b\": {\n\t\t\"x\": {\n\t\t\t\"y\": 1\n\t\t}\n\t},\n\t\"c\": 2\n}"},
        {"{\r\n  \"a\": [],\r\n  \"b\": {\"c\": 1}\r\n}\r\n",
            R"([{"op": "add", "path": "/a/0", "value": {"d": 1}}])",
            "{\r\n  \"a\": [\r\n    {\"d\": 1}\r\n  ],\r\n  \"b\": {\"c\": 1}\r\n}\r\n"},
        {"{\n  \"a\" : 1,\n  \"b\" : 2\n}", R"([{"op": "remove", "path": "/b"}])", "{\n  \"a\" : 1\n}"},
        {"{\n  \"a\": 1\n}", R"([{"op": "remove", "path": "/a"}])", "{}"},
        // What moves keeps its own form, and its lines their place under it.
        {"{\n  \"a\": [\n    {\n      \"x\": 1.0\n    }\n  ],\n  \"b\": 1\n}",
            R"([{"op": "move", "from": "/a/0", "path": "/c"}])",
            "{\n  \"a\": [],\n  \"b\": 1,\n  \"c\": {\n    \"x\": 1.0\n  }\n}"},
        // Of a key that stands twice, the last is read; without it the first would come back.
        {R"({"a": 1, "a": 2})", R"([{"op": "replace", "path": "/a", "value": 3}])", R"({"a": 1, "a": 3})"},
        {R"({"a": 1, "b": 0, "\u0061": 2})", R"([{"op": "remove", "path": "/a"}])", R"({"b": 0})"},
        {"\xEF\xBB\xBF [1] ", R"([{"op": "replace", "path": "", "value": [2]}])", "\xEF\xBB\xBF [2] "},
    };
    for (const auto& c : cases) EXPECT_EQ(patched(c.text, c.patch), c.result) << c.text << c.patch;
}

TEST(JsonText, CommentsStayWithTheirLines) {
    const struct {
        const char *text, *patch, *result;
    } cases[] = {
        {"{ // mine\n  \"a\": 1, // one\n  // two, above\n  \"b\": 2, // two\n}\n",
            R"([{"op": "add", "path": "/c", "value": 3}])",
            "{ // mine\n  \"a\": 1, // one\n  // two, above\n  \"b\": 2, // two\n  \"c\": 3,\n}\n"},
        {"{ // mine\n  \"a\": 1, // one\n  \"c\": 2 // two\n}",
            R"([{"op": "add", "path": "/b", "value": 3}])",
            "{ // mine\n  \"a\": 1, // one\n  \"b\": 3,\n  \"c\": 2 // two\n}"},
        {"{ // mine\n  \"a\": 1, // one\n  \"c\": 2 // two\n}", R"([{"op": "remove", "path": "/c"}])",
            "{ // mine\n  \"a\": 1 // one // two\n}"},
        {"[ // none yet, \"[\n]", R"([{"op": "add", "path": "/0", "value": 3}])",
            "[ // none yet, \"[\n  3\n]"},
        {"[1, /* , ] */ 2,]", R"([{"op": "add", "path": "/-", "value": 3}])",
            "[1, /* , ] */ 2, /* , ] */ 3,]"},
    };
    for (const auto& c : cases) {
        const std::string result = patched(c.text, c.patch, JsonDialect::withComments);
        EXPECT_EQ(result, c.result);
        EXPECT_EQ(parseJson(result, JsonDialect::withComments),
            applyPatch(readPatch(parseJson(c.patch)), parseJson(c.text, JsonDialect::withComments)));
    }
    EXPECT_THROW(parseJson("[1,]"), Failure);
    EXPECT_THROW(parseJson("[1,,]", JsonDialect::withComments), Failure);
}

// Lays a value out as some author might.
class Author {
public:
    Author(SeededRandom& dice, JsonDialect dialect) : dice_(dice), dialect_(dialect) {}

    std::string written(const Json& json) {
        std::string text;
        value(json, text);
        return space() + text + space();
    }

private:
    bool rolls(std::uint64_t sides) { return dice_.next() % sides == 0; }
    std::string space() {
        static const char* const forms[] = {"", "", "", " ", "\n", "\n  ", "\r\n\t", "  "};
        static const char* const comments[] = {"// [ \"one\n", "/* { , */", " // two,\n  ", "/**/"};
        if (dialect_ == JsonDialect::withComments && rolls(6)) return comments[dice_.next() % 4];
        return forms[dice_.next() % 8];
    }
    void value(const Json& json, std::string& into) {
        if (const JsonArray* elements = json.array()) {
            list('[', *elements, ']', into, [&](const Json& one) { value(one, into); });
        } else if (const JsonObject* members = json.object()) {
            list('{', *members, '}', into, [&](const JsonMember& one) {
                into += writeJson(Json(one.key)) + space() + ":" + space();
                value(one.value, into);
            });
        } else {
            into += writeJson(json);
        }
    }
    template <class Items, class One>
    void list(char open, const Items& items, char close, std::string& into, One one) {
        into += open + space();
        std::size_t left = items.size();
        for (const auto& item : items) {
            one(item);
            into += space();
            if (--left > 0 || (dialect_ == JsonDialect::withComments && rolls(4))) into += "," + space();
        }
        into += close;
    }

    SeededRandom& dice_;
    JsonDialect dialect_;
};

TEST(JsonText, SaysWhatThePatchMakesOfIt) {
    SeededRandom dice("texts and their patches");
    const SchemaDocument schema(schemaOf<CompositionSpec>("T"));
    for (int i = 0; i < 1500; ++i) {
        SCOPED_TRACE(i);
        const JsonDialect dialect = i % 2 ? JsonDialect::withComments : JsonDialect::strict;
        const Json before = schema.random(dice, SchemaDocument::Manner::tame);
        const Json after = schema.random(dice, SchemaDocument::Manner::tame);
        const std::string text = Author(dice, dialect).written(before);
        ASSERT_EQ(parseJson(text, dialect), before) << text;
        const JsonPatch patch = diff(before, after);
        const std::string changed = patchedText(text, patch, dialect);
        ASSERT_EQ(parseJson(changed, dialect), after) << text << "\n"
                                                      << writeJson(writePatch(patch)) << changed;
        EXPECT_EQ(patchedText(text, {}, dialect), text);
        EXPECT_EQ(textSaying(changed, after, dialect), changed);
    }
}

}   // namespace
}   // namespace tavix
