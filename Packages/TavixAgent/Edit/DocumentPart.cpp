#include "TavixAgent/Edit/DocumentPart.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Paths/JsonTextStyle.h"
#include "TavixCore/Support/JsonParser.h"

namespace tavix {
namespace {

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

Json cutBelow(const Json& json, std::size_t depth) {
    if (const JsonArray* elements = json.array(); elements && !elements->empty()) {
        if (depth == 0) return "[" + counted(elements->size(), "element", "elements") + "]";
        JsonArray kept;
        for (const Json& element : *elements) kept.push_back(cutBelow(element, depth - 1));
        return kept;
    }
    if (const JsonObject* members = json.object(); members && !members->empty()) {
        if (depth == 0) {
            std::string keys;
            for (const JsonMember& member : *members) keys += (keys.empty() ? "" : ", ") + member.key;
            return "{" + keys + "}";
        }
        std::vector<JsonMember> kept;
        for (const JsonMember& member : *members)
            kept.push_back({member.key, cutBelow(member.value, depth - 1)});
        return JsonObject::of(std::move(kept));
    }
    return json;
}

}   // namespace

std::string partOf(std::string_view text, const JsonPointer& pointer, std::size_t depth) {
    const Json document = parseJson(text);
    const Json* part = find(document, pointer);
    if (!part) {
        JsonPointer above = pointer;
        while (!above.isRoot() && !find(document, above)) above = above.parent();
        const std::string place = above.isRoot() ? "The document" : "\"" + above.text() + "\"";
        throw Failure("There is nothing at \"" + pointer.text() + "\". " + place + " holds " +
                      styledJson(cutBelow(*find(document, above), 0), {}, "", 0) + ".");
    }
    if (pointer.isRoot() && depth == 0) return std::string(text);
    return styledJson(depth == 0 ? *part : cutBelow(*part, depth), styleOf(text), "", 0);
}

}   // namespace tavix
