// JSON Pointer and JSON Patch, by the examples of their standards.
#include "TavixCore/Paths/JsonPatch.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <string>

namespace tavix {
namespace {

// RFC 6901, section 5.
TEST(JsonPointer, FindsWhatTheStandardSays) {
    const Json document = parseJson(R"({"foo": ["bar", "baz"], "": 0, "a/b": 1, "c%d": 2, "e^f": 3, "g|h": 4,
        "i\\j": 5, "k\"l": 6, " ": 7, "m~n": 8})");
    const struct {
        const char *pointer, *value;
    } cases[] = {{"/foo", R"(["bar", "baz"])"}, {"/foo/0", R"("bar")"}, {"/", "0"}, {"/a~1b", "1"},
        {"/c%d", "2"}, {"/e^f", "3"}, {"/g|h", "4"}, {"/i\\j", "5"}, {"/k\"l", "6"}, {"/ ", "7"},
        {"/m~0n", "8"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pointer);
        const JsonPointer pointer = JsonPointer::parse(c.pointer);
        EXPECT_EQ(pointer.text(), c.pointer);
        const Json* const found = find(document, pointer);
        ASSERT_TRUE(found);
        EXPECT_EQ(*found, parseJson(c.value));
    }
    EXPECT_EQ(find(document, JsonPointer::parse("")), &document);
    EXPECT_EQ(JsonPointer::parse("/~01").tokens(), std::vector<std::string>{"~1"});
    for (const char* nowhere :
        {"/bar", "/foo/2", "/foo/-", "/foo/01", "/foo/0/x", "/foo/+1", "/foo/1e0", "//"})
        EXPECT_EQ(find(document, JsonPointer::parse(nowhere)), nullptr) << nowhere;
    for (const char* wrong : {"foo", "/~", "/~2", "#/foo", "/a~"})
        EXPECT_THROW(JsonPointer::parse(wrong), Failure) << wrong;
}

// RFC 6902, appendix A, and what follows from its text.
TEST(JsonPatch, DoesWhatTheStandardSays) {
    const struct {
        const char *document, *patch, *result;   // without a result it fails, with a sentence about `result`
    } cases[] = {
        {R"({"foo": "bar"})", R"([{"op": "add", "path": "/baz", "value": "qux"}])",
            R"({"baz": "qux", "foo": "bar"})"},
        {R"({"foo": ["bar", "baz"]})", R"([{"op": "add", "path": "/foo/1", "value": "qux"}])",
            R"({"foo": ["bar", "qux", "baz"]})"},
        {R"({"baz": "qux", "foo": "bar"})", R"([{"op": "remove", "path": "/baz"}])", R"({"foo": "bar"})"},
        {R"({"foo": ["bar", "qux", "baz"]})", R"([{"op": "remove", "path": "/foo/1"}])",
            R"({"foo": ["bar", "baz"]})"},
        {R"({"baz": "qux", "foo": "bar"})", R"([{"op": "replace", "path": "/baz", "value": "boo"}])",
            R"({"baz": "boo", "foo": "bar"})"},
        {R"({"foo": {"bar": "baz", "waldo": "fred"}, "qux": {"corge": "grault"}})",
            R"([{"op": "move", "from": "/foo/waldo", "path": "/qux/thud"}])",
            R"({"foo": {"bar": "baz"}, "qux": {"corge": "grault", "thud": "fred"}})"},
        {R"({"foo": ["all", "grass", "cows", "eat"]})",
            R"([{"op": "move", "from": "/foo/1", "path": "/foo/3"}])",
            R"({"foo": ["all", "cows", "eat", "grass"]})"},
        {R"({"baz": "qux", "foo": ["a", 2, "c"]})",
            R"([{"op": "test", "path": "/baz", "value": "qux"}, {"op": "test", "path": "/foo/1", "value": 2}])",
            R"({"baz": "qux", "foo": ["a", 2, "c"]})"},
        {R"({"baz": "qux"})", R"([{"op": "test", "path": "/baz", "value": "bar"}])", nullptr},
        {R"({"foo": "bar"})", R"([{"op": "add", "path": "/child", "value": {"grandchild": {}}}])",
            R"({"foo": "bar", "child": {"grandchild": {}}})"},
        {R"({"foo": "bar"})", R"([{"op": "add", "path": "/baz", "value": "qux", "xyz": 123}])",
            R"({"foo": "bar", "baz": "qux"})"},
        {R"({"foo": "bar"})", R"([{"op": "add", "path": "/baz/bat", "value": "qux"}])", nullptr},
        {R"({"/": 9, "~1": 10})", R"([{"op": "test", "path": "/~01", "value": 10}])",
            R"({"/": 9, "~1": 10})"},
        {R"({"/": 9, "~1": 10})", R"([{"op": "test", "path": "/~01", "value": "10"}])", nullptr},
        {R"({"foo": ["bar"]})", R"([{"op": "add", "path": "/foo/-", "value": ["abc", "def"]}])",
            R"({"foo": ["bar", ["abc", "def"]]})"},
        // Whole documents, copies, nulls, numbers of one value.
        {R"({"a": 1})", R"([{"op": "replace", "path": "", "value": [1]}])", "[1]"},
        {R"({"a": [1]})", R"([{"op": "copy", "from": "/a", "path": "/a/0"}])", R"({"a": [[1], 1]})"},
        {R"({"a": {"b": 1}})", R"([{"op": "move", "from": "/a/b", "path": "/a"}])", R"({"a": 1})"},
        {R"({"a": 1})", R"([{"op": "add", "path": "/a", "value": null}])", R"({"a": null})"},
        {R"({"a": 1})", R"([{"op": "test", "path": "/a", "value": 1.0}])", R"({"a": 1})"},
        {R"({"a": 1})", R"([{"op": "move", "from": "/a", "path": "/a"}])", R"({"a": 1})"},
        {R"({"a": {}})", R"([{"op": "move", "from": "/a", "path": "/a/b"}])", nullptr},
        {R"({"a": [1]})", R"([{"op": "add", "path": "/a/2", "value": 1}])", nullptr},
        {R"({"a": [1]})", R"([{"op": "remove", "path": "/a/-"}])", nullptr},
        {R"({"a": [1]})", R"([{"op": "remove", "path": "/a/1"}])", nullptr},
        {R"({"a": [1]})", R"([{"op": "replace", "path": "/b", "value": 1}])", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.patch);
        const JsonPatch patch = readPatch(parseJson(c.patch));
        EXPECT_EQ(readPatch(writePatch(patch)), patch);
        try {
            const Json result = applyPatch(patch, parseJson(c.document));
            ASSERT_TRUE(c.result) << writeJson(result);
            EXPECT_EQ(result, parseJson(c.result));
        } catch (const PatchError& error) {
            EXPECT_FALSE(c.result) << error.message();
        }
    }
}

TEST(JsonPatch, SaysWhichOperationFailsAndWhere) {
    const struct {
        const char *patch, *path, *message;
    } cases[] = {
        {R"([{"op": "test", "path": "/a", "value": 1}, {"op": "remove", "path": "/x/y"}])", "/x/y",
            R"(Operation 1 of the patch: "/x/y" does not exist.)"},
        {R"([{"op": "add", "path": "/a/b", "value": 1}])", "/a/b",
            R"(Operation 0 of the patch: "/a/b" cannot exist: it would be inside a number.)"},
        {R"([{"op": "add", "path": "/l/5", "value": 1}])", "/l/5",
            R"(Operation 0 of the patch: "/l/5" lies past the end of its list of 1.)"},
        {R"([{"op": "add", "path": "/l/x", "value": 1}])", "/l/x",
            R"(Operation 0 of the patch: "/l/x" is no place in a list: "x" is no index.)"},
        {R"([{"op": "test", "path": "", "value": 1}])", "",
            "Operation 0 of the patch: the document is another value than the one tested for."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.patch);
        try {
            applyPatch(readPatch(parseJson(c.patch)), parseJson(R"({"a": 1, "l": [0]})"));
            ADD_FAILURE() << "nothing failed";
        } catch (const PatchError& error) {
            EXPECT_EQ(error.path.text(), c.path);
            EXPECT_EQ(error.message(), c.message);
        }
    }
}

TEST(JsonPatch, IsReadWithTheSameCareAsADocument) {
    const struct {
        const char *patch, *message;
    } cases[] = {
        {"{}", "The document must be a list of operations, but is an object."},
        {"[7]", R"("[0]" must be an object, but is a number.)"},
        {R"([{"path": ""}])", R"("[0].op" is missing, but it is required; add the key.)"},
        {R"([{"op": "delete", "path": ""}])",
            R"(Unknown operation "delete" — must be one of add, remove, replace, move, copy, test.)"},
        {R"([{"op": "remove"}])", R"("[0].path" is missing, but it is required; add the key.)"},
        {R"([{"op": "remove", "path": "a"}])",
            R"("a" is no JSON Pointer: it must be empty or begin with "/".)"},
        {R"([{"op": "add", "path": "/a"}])", R"("[0].value" is missing, but it is required; add the key.)"},
        {R"([{"op": "move", "path": "/a"}])", R"("[0].from" is missing, but it is required; add the key.)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.patch);
        try {
            readPatch(parseJson(c.patch));
            ADD_FAILURE() << "nothing failed";
        } catch (const DecodingError& error) {
            EXPECT_EQ(error.message(), c.message);
        }
    }
}

}   // namespace
}   // namespace tavix
