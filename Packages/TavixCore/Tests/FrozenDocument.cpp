#include "TavixCore/Tests/FrozenDocument.h"

#include "TavixCore/Support/FileBytes.h"

#include "TestSupport/SourceTree.h"

#include <set>

namespace tavix::frozen {
namespace {

// The keys of an object, and of all objects in it.
void collectKeys(const Json& json, std::set<std::string>& into) {
    if (const JsonArray* elements = json.array())
        for (const Json& element : *elements) collectKeys(element, into);
    if (const JsonObject* members = json.object())
        for (const JsonMember& one : *members) {
            into.insert(one.key);
            collectKeys(one.value, into);
        }
}

}   // namespace

std::string document(std::string_view name) {
    return readBytes(
        testsupport::inSourceTree("Packages/TavixCore/Tests/Data") / name, JsonLimits{}.maxBytes);
}

void expectEveryKey(const Json& schema, const std::vector<Json>& documents) {
    std::set<std::string> used;
    for (const Json& one : documents) collectKeys(one, used);
    for (const JsonMember& definition : *member(schema, "$defs").object()) {
        const Json* properties = definition.value.find("properties");
        if (!properties) continue;
        for (const JsonMember& property : *properties->object())
            EXPECT_TRUE(used.contains(property.key)) << definition.key << "." << property.key;
    }
}

}   // namespace tavix::frozen
