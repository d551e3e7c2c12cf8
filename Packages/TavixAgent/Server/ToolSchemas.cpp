#include "TavixAgent/Server/ToolSchemas.h"

#include "TavixAgent/Check/FilmFigures.h"
#include "TavixAgent/Check/FindingReport.h"
#include "TavixAgent/Describe/FrameDescription.h"
#include "TavixAgent/Edit/DocumentDiff.h"
#include "TavixCore/Paths/JsonPointer.h"
#include "TavixCore/Support/Document.h"

#include <initializer_list>
#include <string>

namespace tavix::ToolSchemas {
namespace {

struct Row {
    const char *key, *type, *meaning;
    bool isRequired = false;
};

Json typed(const char* type, const char* meaning) {
    JsonObject schema{{"description", meaning}};
    if (*type) schema.set("type", type);
    return schema;
}

Json objectOf(std::initializer_list<Row> rows) {
    JsonObject properties;
    JsonArray required;
    for (const Row& row : rows) {
        properties.set(row.key, typed(row.type, row.meaning));
        if (row.isRequired) required.emplace_back(row.key);
    }
    JsonObject schema{
        {"type", "object"}, {"properties", std::move(properties)}, {"additionalProperties", false}};
    if (!required.empty()) schema.set("required", std::move(required));
    return schema;
}

constexpr Row document{"path", "string", "A .tavixcomp bundle or a composition.json.", true};
constexpr Row cursor{"cursor", "string", "Go on with a longer answer: the nextCursor of the part before."};
constexpr Row picture{
    "output", "string", "Where to keep the picture, a .png; a place of its own by default."};

// An answer that is too long comes in parts of its text.
Json givenBy(JsonObject properties) {
    if (!properties.find("text"))
        properties.set("text", typed("string", "A part of an answer that is too long for one."));
    properties.set("nextCursor", typed("string", "Call again with this for the next part."));
    return JsonObject{{"type", "object"}, {"properties", std::move(properties)}};
}

// A schema of a record, whose names stay beside it.
JsonObject propertiesOf(const Json& schema) {
    const Json* record = &schema;
    if (const Json* reference = schema.find("$ref"); reference && reference->text())
        record = find(schema, JsonPointer::parse(reference->text()->substr(1)));   // after "#"
    return *record->find("properties")->object();
}
Json withNames(Json outer, const Json& inner) {
    if (const Json* names = inner.find("$defs")) {
        JsonObject all = outer.find("$defs") ? *outer.find("$defs")->object() : JsonObject();
        all.merge(*names->object());
        outer.object()->set("$defs", std::move(all));
    }
    return outer;
}

Json listOf(Json items) { return JsonObject{{"type", "array"}, {"items", std::move(items)}}; }

}   // namespace

Json newDocument() {
    return objectOf({{"path", "string", "The bundle to make; its name ends in .tavixcomp.", true},
        {"template", "string", "What to start from: one of teaser, feature-tour, launch and others."},
        {"size", "string", "The frame, as in 1080x1920."}});
}
Json newDocumentOutput() {
    return givenBy({{"path", typed("string", "The bundle.")}, {"revision", typed("string", "Its revision.")},
        {"text", typed("string", "Its outline.")}});
}

Json readDocument() {
    return objectOf({document, {"pointer", "string", "Only this part, as in /scenes/0/layers/2."},
        {"depth", "integer", "Tell only the size of what lies deeper."}, cursor});
}
Json readDocumentOutput() {
    return givenBy({{"revision", typed("string", "Of the document; give it to edit_document.")},
        {"pointer", typed("string", "What was read.")}, {"text", typed("string", "As it is written.")}});
}

Json editDocument() {
    return objectOf({document, {"patch", "array", "A JSON Patch, RFC 6902."},
        {"pointer", "string", "In place of a patch: where to set one value."},
        {"value", "", "That value; without one the place is removed."},
        {"ifRevision", "string", "Change nothing unless the document still has this revision."}});
}
Json editDocumentOutput() {
    return givenBy({{"revision", typed("string", "What the document has now.")},
        {"before", typed("string", "What it had.")}, {"came", listOf(findingSchema())},
        {"went", listOf(findingSchema())}, {"difference", typed("string", "The lines that changed.")}});
}

Json check() { return objectOf({document, {"quick", "boolean", "Draw no frames; takes a moment."}, cursor}); }
Json checkOutput() {
    const Json figures = schemaOf<FilmFigures>("figures");
    return givenBy(
        {{"revision", typed("string", "Of what was judged.")}, {"findings", listOf(findingSchema())},
            {"findingCount", typed("integer", "Of all, also those that are not told.")},
            {"mutedCount", typed("integer", "Of those that the document mutes.")},
            {"figures", JsonObject{{"type", "object"}, {"properties", propertiesOf(figures)}}}});
}

Json describe() {
    return objectOf({document, {"at", "number", "The moment, in seconds."},
        {"scene", "string", "The scene that local counts in, by its id."},
        {"local", "number", "The moment in that scene."},
        {"from", "number", "A stretch in place of a moment."}, {"to", "number", "The end of the stretch."},
        {"structure", "boolean", "Give all numbers as JSON in place of a page of text."}, cursor});
}
Json describeOutput() {
    const Json frame = schemaOf<FrameDescription>("frame"), range = schemaOf<RangeDescription>("range");
    JsonObject properties = propertiesOf(frame);
    properties.merge(propertiesOf(range));
    return withNames(withNames(givenBy(std::move(properties)), frame), range);
}

Json still() {
    return objectOf({document, {"at", "number", "The moment, in seconds."},
        {"scene", "string", "The scene that local counts in, by its id."},
        {"local", "number", "The moment in that scene."}, picture});
}
Json sheet() {
    return objectOf({document, {"from", "number", "The first moment."}, {"to", "number", "The last moment."},
        {"every", "number", "A picture every so many seconds."}, {"scene", "string", "Only this scene."},
        {"columns", "integer", "Pictures in a row."},
        {"annotate", "boolean", "Number what check finds, at its place."}, picture});
}
Json pictureOutput() {
    return givenBy({{"output", typed("string", "The picture at its full size.")},
        {"warnings", listOf(typed("string", "What could not be drawn as asked."))}});
}

Json diff() {
    return objectOf(
        {{"path", "string", "The document before.", true}, {"other", "string", "The document after.", true},
            {"sheet", "boolean", "Draw before and after side by side."}, picture, cursor});
}
Json diffOutput() {
    const Json change = schemaOf<DocumentChange>("change");
    return givenBy({{"changes", listOf(JsonObject{{"type", "object"}, {"properties", propertiesOf(change)}})},
        {"sheet", typed("string", "The picture of both.")}});
}

Json render() {
    return objectOf({document, {"output", "string", "The film; .mp4, .mov, .webm, .gif or .webp."},
        {"effort", "string", "fast, balanced or best."},
        {"codec", "string", "h264, hevc, prores422hq, prores4444."},
        {"resolution", "string", "native, 1080p or 4k."}, {"fps", "string", "Frames a second, as in 30."},
        {"rate", "string", "Bits a second of the pictures, as in 8M."},
        {"maxSize", "string", "The most that the file may take, as in 10MB."}});
}
Json renderOutput() {
    return givenBy({{"output", typed("string", "The film.")}, {"frames", typed("integer", "How many.")},
        {"seconds", typed("number", "How long.")}, {"sizeBytes", typed("integer", "How large.")},
        {"probe", typed("object", "What the file holds.")}});
}

Json presets() {
    return objectOf(
        {{"family", "string",
             "backgrounds, effects, transitions, curves, devices, motions, formations, kinetic, fonts or sounds.",
             true},
            {"name", "string", "One of it, in full."}, {"search", "string", "Only those with these words."},
            cursor});
}
Json schema() {
    return objectOf(
        {{"type", "string",
             "composition, scene, layer, text, device, image, video, shape, fill, track, effect, transition or audio.",
             true},
            cursor});
}
Json schemaOutput() { return givenBy({{"schema", typed("object", "The schema.")}}); }

Json file() { return objectOf({{"path", "string", "The file or folder.", true}, cursor}); }
Json anyOutput() { return givenBy({}); }

}   // namespace tavix::ToolSchemas
